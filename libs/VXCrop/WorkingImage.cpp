#include "WorkingImage.h"

#include <QVector>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace vx::crop {

namespace {

// The pixels along one side that a pixel of the working image stands for.
struct Run {
    int first;
    int count;
};

constexpr int mostInRun = 4;

// The runs along a side: all of their pixels, or only those in the middle where there are more than two.
QVector<Run> runsAlong(int pixels, int workingPixels, int inTheMiddle)
{
    QVector<Run> runs;
    runs.reserve(workingPixels);
    for (int i = 0; i < workingPixels; ++i) {
        const auto first = static_cast<int>(qint64 { i } * pixels / workingPixels);
        const auto end = static_cast<int>(qint64 { i + 1 } * pixels / workingPixels);
        const int count = std::max(end - first, 1);
        const int taken = pixels > 2 * workingPixels ? std::min(count, inTheMiddle) : count;
        runs.append({ first + (count - taken) / 2, taken });
    }
    return runs;
}

// A picture's rows as words in another format of 32 bits per pixel.
class ConvertedRows {
public:
    ConvertedRows(const QImage& image, QImage::Format wordFormat)
        : picture(image)
        , format(wordFormat)
    {
    }

    // Valid until the next row is asked for.
    const QRgb* at(int y)
    {
        if (picture.format() == format)
            return reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        // Qt converts a single row without its threads.
        QImage row(
            picture.constScanLine(y), picture.width(), 1, picture.bytesPerLine(), picture.format());
        row.setColorTable(picture.colorTable());
        converted = held(row.convertToFormat(format));
        return reinterpret_cast<const QRgb*>(converted.constScanLine(0));
    }

private:
    const QImage& picture;
    QImage::Format format;
    QImage converted;
};

// What the words of a picture's rows say about opacity.
enum class Alpha {
    None, // nothing: all pixels are opaque
    Straight, // the colours are not multiplied by it
    Premultiplied,
};

Alpha alphaOf(const QImage& picture)
{
    const bool isOpaque = picture.format() == QImage::Format_RGB32
        || picture.format() == QImage::Format_RGB888
        || picture.format() == QImage::Format_Grayscale8;
    if (isOpaque)
        return Alpha::None;
    return picture.format() == QImage::Format_ARGB32 ? Alpha::Straight : Alpha::Premultiplied;
}

// Composites a premultiplied colour over mid-grey.
QRgb onGrey(QRgb word)
{
    const int grey = (128 * (255 - qAlpha(word)) + 127) / 255;
    const auto over = [grey](int channel) { return std::min(channel + grey, 255); };
    return qRgb(over(qRed(word)), over(qGreen(word)), over(qBlue(word)));
}

// The channels of a word, or sums of them, packed into 16 bits each: alpha and green in the upper half, red and
// blue in the lower one.
using Channels = quint64;

constexpr Channels everySecondByte = 0x00FF00FF00FF00FFU;

Channels channelsOf(QRgb word) { return (Channels { word } << 24U | word) & everySecondByte; }

QRgb wordOf(Channels channels) { return static_cast<QRgb>(channels >> 24U | channels); }

Channels sumOf(const QRgb* words, int count)
{
    Channels sum = 0;
    for (int i = 0; i < count; ++i)
        sum += channelsOf(words[i]);
    return sum;
}

// The same for four words, two at a time.
Channels sumOfFour(const QRgb* words)
{
    constexpr quint64 lowerHalf = 0xFFFFFFFFU;
    std::array<quint64, 2> pairs {};
    std::memcpy(pairs.data(), words, sizeof pairs);
    const quint64 redBlue = (pairs[0] & everySecondByte) + (pairs[1] & everySecondByte);
    const quint64 alphaGreen
        = (pairs[0] >> 8U & everySecondByte) + (pairs[1] >> 8U & everySecondByte);
    return ((redBlue + (redBlue >> 32U)) & lowerHalf)
        | (alphaGreen + (alphaGreen << 32U)) >> 32U << 32U;
}

Channels premultipliedSumOf(const QRgb* words, int count)
{
    Channels sum = 0;
    for (int i = 0; i < count; ++i)
        sum += channelsOf(qPremultiply(words[i]));
    return sum;
}

// The sum of premultiplied words.
Channels sumOf(const QRgb* words, int count, Alpha alpha)
{
    const Channels sum = count == 4 ? sumOfFour(words) : sumOf(words, count);
    const Channels allOpaque = Channels { 255 } * static_cast<quint32>(count);
    if (alpha == Alpha::None)
        return (sum & 0x0000FFFFFFFFFFFFU) | allOpaque << 48U;
    if (alpha == Alpha::Straight && sum >> 48U != allOpaque)
        return premultipliedSumOf(words, count);
    return sum;
}

// Divides sums by their number of words, rounded to the nearest integer.
class Means {
public:
    Means()
    {
        for (quint32 count = 1; count < reciprocals.size(); ++count)
            reciprocals.at(count) = (65536 + count - 1) / count;
    }

    QRgb of(Channels sums, std::size_t count) const
    {
        switch (count) {
        case 1:
            return wordOf(sums);
        case 2:
            return shifted(sums, 1);
        case 4:
            return shifted(sums, 2);
        default:
            return divided(sums, reciprocals[count]);
        }
    }

    // The means of two words, or of four: of 2 to the power of shift.
    static QRgb shifted(Channels sums, quint32 shift)
    {
        constexpr Channels ones = 0x0001000100010001U;
        return wordOf(((sums + (ones << (shift - 1))) >> shift) & everySecondByte);
    }

private:
    // Multiplies by 65536 / count, rounded up, which gives every mean exactly.
    static QRgb divided(Channels sums, quint32 reciprocal)
    {
        const auto mean = [=](quint32 bit) {
            const auto sum = static_cast<quint32>(sums >> bit) & 0xFFFFU;
            return (sum * reciprocal + 32768) >> 16U;
        };
        return mean(48) << 24U | mean(16) << 16U | mean(32) << 8U | mean(0);
    }

    std::array<quint32, 3 * mostInRun + 1> reciprocals {};
};

// One row of the working image, from one or more rows of the picture.
class WorkingRow {
public:
    explicit WorkingRow(const QVector<Run>& runs)
        : columns(runs)
        , sums(static_cast<std::size_t>(runs.size()))
    {
    }

    void add(const QRgb* row, Alpha alpha)
    {
        Channels* sum = sums.data();
        for (const Run& run : columns) {
            *sum += sumOf(row + run.first, run.count, alpha);
            ++sum;
        }
        ++rows;
    }

    // Writes the means over the rows that have been added, and starts again.
    void writeMeans(QRgb* words)
    {
        const Channels* sum = sums.data();
        for (const Run& run : columns) {
            const QRgb mean = means.of(*sum, rows * static_cast<std::size_t>(run.count));
            *words = qAlpha(mean) == 255 ? mean : onGrey(mean);
            ++sum;
            ++words;
        }
        std::fill(sums.begin(), sums.end(), 0);
        rows = 0;
    }

private:
    const QVector<Run>& columns;
    std::vector<Channels> sums;
    std::size_t rows = 0;
    Means means;
};

// One row of the working image, from one or two rows of an opaque picture, one or two columns for each pixel. The
// columns are summed first, because that runs in vectors.
class OpaqueRow {
public:
    OpaqueRow(const QVector<Run>& runs, int width)
        : columns(runs)
        , sums(std::size_t { 4 } * static_cast<std::size_t>(width))
    {
    }

    void add(const QRgb* row)
    {
        const auto* const bytes = reinterpret_cast<const uchar*>(row);
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] = static_cast<quint16>(sums[i] + bytes[i]);
        ++rows;
    }

    // Writes the means over the rows that have been added, and starts again. A single column counts
    // twice, which changes no mean.
    void writeMeans(QRgb* words)
    {
        constexpr QRgb opaque = 0xff000000U;
        const quint32 shift = rows == 1 ? 1 : 2;
        for (const Run& run : columns) {
            const Channels sum = channelsAt(run.first) + channelsAt(run.first + run.count - 1);
            *words = Means::shifted(sum, shift) | opaque;
            ++words;
        }
        std::fill(sums.begin(), sums.end(), 0);
        rows = 0;
    }

private:
    Channels channelsAt(int column) const
    {
        const quint16* const channels = sums.data() + std::ptrdiff_t { 4 } * column;
        return Channels { channels[1] } << 32U | Channels { channels[2] } << 16U | channels[0];
    }

    const QVector<Run>& columns;
    std::vector<quint16> sums;
    quint32 rows = 0;
};

// An image whose pixels are not initialised, in a block twice as large as it needs. glibc gives memory back to the
// system when twice its largest block is free; so it keeps the memory of the map, whose page faults would cost as much
// as the analysis.
QImage roomyImage(const QSize& size)
{
    const std::size_t bytes = std::size_t { 4 } * static_cast<std::size_t>(size.width())
        * static_cast<std::size_t>(size.height());
    auto block = std::make_unique<std::vector<uchar>>();
    block->reserve(2 * bytes);
    const auto release = [](void* memory) { delete static_cast<std::vector<uchar>*>(memory); };
    QImage image = held(QImage(
        block->data(), size.width(), size.height(), QImage::Format_ARGB32, release, block.get()));
    static_cast<void>(block.release()); // the image releases it
    return image;
}

} // namespace

QImage reduced(const QImage& picture, const QSize& size)
{
    const QVector<Run> columns = runsAlong(picture.width(), size.width(), mostInRun);
    const QVector<Run> rows = runsAlong(picture.height(), size.height(), 1);
    const Alpha alpha = alphaOf(picture);
    ConvertedRows words(picture,
        alpha == Alpha::Premultiplied ? QImage::Format_ARGB32_Premultiplied
            : alpha == Alpha::None    ? QImage::Format_RGB32
                                      : picture.format());
    QImage working = roomyImage(size);
    if (alpha == Alpha::None && picture.width() <= 2 * size.width()) {
        OpaqueRow row(columns, picture.width());
        for (int y = 0; y < size.height(); ++y) {
            for (int i = rows.at(y).first; i < rows.at(y).first + rows.at(y).count; ++i)
                row.add(words.at(i));
            row.writeMeans(reinterpret_cast<QRgb*>(working.scanLine(y)));
        }
        return working;
    }
    WorkingRow row(columns);
    for (int y = 0; y < size.height(); ++y) {
        for (int i = rows.at(y).first; i < rows.at(y).first + rows.at(y).count; ++i)
            row.add(words.at(i), alpha);
        row.writeMeans(reinterpret_cast<QRgb*>(working.scanLine(y)));
    }
    return working;
}

QImage opacityOrGrey(const QImage& map)
{
    QImage opacity = held(QImage(map.size(), QImage::Format_Grayscale8));
    QImage grey = held(QImage(map.size(), QImage::Format_Grayscale8));
    ConvertedRows rows(map, QImage::Format_ARGB32);
    bool isMask = false;
    for (int y = 0; y < map.height(); ++y) {
        const QRgb* const row = rows.at(y);
        std::transform(row, row + map.width(), opacity.scanLine(y),
            [](QRgb word) { return static_cast<uchar>(qAlpha(word)); });
        std::transform(row, row + map.width(), grey.scanLine(y),
            [](QRgb word) { return static_cast<uchar>(qGray(word)); });
        isMask = isMask
            || std::any_of(row, row + map.width(), [](QRgb word) { return qAlpha(word) < 255; });
    }
    return isMask ? opacity : grey;
}

QImage held(QImage image)
{
    if (image.isNull())
        throw std::bad_alloc();
    return image;
}

} // namespace vx::crop
