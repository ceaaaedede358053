#include "Scaling.h"

#include "FreshMemory.h"
#include "PixelWords.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

using namespace vx::kernels;

// Painters may not reach beyond.
constexpr int longestSide = 32767;

// From here on Qt steps along one side in another way because of the other side.
constexpr int reduction = 100;

using Positions = std::vector<int>;

// Whether Qt takes pixels, and takes them along either side as if there were no other.
bool isSimple(const QImage& image, const QSize& size)
{
    const QSize sides = size.expandedTo(image.size());
    return holdsOpaqueWords(image.format()) && image.devicePixelRatio() == 1
        && std::max(sides.width(), sides.height()) <= longestSide
        && image.width() < reduction * size.width() && image.height() < reduction * size.height();
}

// Which pixels along a side of \a length Qt takes for \a count. That is asked, not computed, because its
// arithmetic depends on the format: it scales a line of pixels that are numbered.
// \return empty when it takes none for one of them.
Positions takenAlong(Qt::Orientation side, int length, int count, QImage::Format format)
{
    std::vector<QRgb> numbers(static_cast<std::size_t>(length));
    std::iota(numbers.begin(), numbers.end(), opaqueBlack);
    const auto line = [side](int pixels) {
        return side == Qt::Horizontal ? QSize(pixels, 1) : QSize(1, pixels);
    };
    const QSize size = line(length);
    const QImage numbered(reinterpret_cast<const uchar*>(numbers.data()), size.width(),
        size.height(), size.width() * static_cast<int>(sizeof(QRgb)), format);
    const QImage scaled
        = numbered.scaled(line(count), Qt::IgnoreAspectRatio, Qt::FastTransformation);

    Positions taken;
    taken.reserve(static_cast<std::size_t>(count));
    for (int y = 0; y < scaled.height(); ++y) {
        for (int x = 0; x < scaled.width(); ++x) {
            const QRgb number = wordRow(scaled, y)[x];
            if (number < opaqueBlack)
                return {};
            taken.push_back(static_cast<int>(number - opaqueBlack));
        }
    }
    return taken;
}

// Of a large image every pixel lies in another cache line, and most of them in memory: those of the next
// row are fetched while these are taken. \return the bits that all of the pixels have.
QRgb takeColumns(const QRgb* row, const QRgb* nextRow, const Positions& columns, QRgb* target)
{
    QRgb common = 0xFFFFFFFFU;
    for (const int column : columns) {
        __builtin_prefetch(nextRow + column);
        const QRgb pixel = row[column];
        *target++ = pixel;
        common &= pixel;
    }
    return common;
}

// Takes the pixels that Qt takes, but does nothing else with them. \return null where Qt does: it blends
// pixels that are not opaque onto nothing, which rounds them.
QImage sampled(const QImage& image, const QSize& size)
{
    const QImage::Format format = image.format();
    const Positions columns = takenAlong(Qt::Horizontal, image.width(), size.width(), format);
    const Positions rows = takenAlong(Qt::Vertical, image.height(), size.height(), format);
    QImage target = uninitializedImage(size, format);
    if (columns.empty() || rows.empty() || target.isNull())
        return QImage();
    int y = 0;
    for (auto row = rows.begin(); row != rows.end(); ++row, ++y) {
        QRgb* const pixels = writableWordRow(target, y);
        if (y > 0 && *row == *(row - 1)) {
            std::copy_n(wordRow(target, y - 1), size.width(), pixels);
            continue;
        }
        const auto next = row + 1 == rows.end() ? row : row + 1;
        const QRgb common
            = takeColumns(wordRow(image, *row), wordRow(image, *next), columns, pixels);
        if ((common | bitsAlwaysSet(image)) < opaqueBlack)
            return QImage();
    }
    return target;
}

} // namespace

QImage vx::kernels::scaledInto(const QSize& bound, const QImage& image)
{
    if (image.isNull() || !bound.isValid()) // Qt warns when it is asked to scale a null image
        return image;
    const QSize size = image.size().scaled(bound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    if (size == image.size() && !bound.isEmpty())
        return image;
    const QImage scaled
        = !bound.isEmpty() && isSimple(image, size) ? sampled(image, size) : QImage();
    return scaled.isNull() ? image.scaled(bound, Qt::KeepAspectRatio, Qt::FastTransformation)
                           : scaled;
}
