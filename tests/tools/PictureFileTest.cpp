#include "host/picture/PictureFile.h"

#include "OddJpegs.h"
#include "SampleFiles.h"
#include "host/HostError.h"
#include "host/picture/PictureWriter.h"

#include <QColorSpace>
#include <QImageReader>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using host::ExitCode;

// The largest difference between the channels of two pictures; 255 when their sizes differ.
int mostDifference(const QImage& one, const QImage& other)
{
    int most = one.size() == other.size() ? 0 : 255;
    for (int y = 0; y < one.height() && most < 255; ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            most = std::max({ most, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b)) });
        }
    }
    return most;
}

class PictureFile : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 96, 64 });

    static QImage readAll(const QString& path)
    {
        return host::PictureFile(path, host::ReadingRules()).readAll();
    }

    static ExitCode failureOf(const QString& path)
    {
        try {
            readAll(path);
        } catch (const host::HostError& error) {
            EXPECT_EQ(std::string(error.what()).rfind(path.toStdString(), 0), 0U) << error.what();
            return error.code();
        }
        return ExitCode::Success;
    }
};

} // namespace

TEST_F(PictureFile, readsAnyDepth)
{
    for (const QImage::Format format : { QImage::Format_RGB32, QImage::Format_ARGB32,
             QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_Indexed8,
             QImage::Format_RGBA64, QImage::Format_Mono }) {
        const QImage stored = picture.convertToFormat(format);
        const QImage read = readAll(folder.save(stored, QStringLiteral("depth.png")));
        // Of 16 bits, the reader takes the upper 8, while Qt rounds.
        const bool isDeep = format == QImage::Format_Grayscale16 || format == QImage::Format_RGBA64;
        EXPECT_LE(mostDifference(stored, read), isDeep ? 1 : 0) << format;
    }
}

TEST_F(PictureFile, keepsTransparency)
{
    QImage stored = picture.convertToFormat(QImage::Format_ARGB32);
    stored.setPixel(3, 3, qRgba(200, 100, 50, 40));
    const QImage read = readAll(folder.save(stored, QStringLiteral("alpha.png")));
    EXPECT_EQ(read.pixel(3, 3), qRgba(200, 100, 50, 40));
}

TEST_F(PictureFile, letsTheContentDecideTheFormat)
{
    const QString path
        = folder.save(samples::encoded(picture, "png"), QStringLiteral("really-a-png.jpg"));
    EXPECT_EQ(readAll(path).size(), QSize(96, 64));
}

TEST_F(PictureFile, appliesTheExifOrientation)
{
    QImage marked(96, 64, QImage::Format_RGB32);
    marked.fill(Qt::black);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            marked.setPixel(x, y, qRgb(255, 255, 255)); // the upper left corner is white
    }
    const QString turned
        = folder.save(samples::jpegWithOrientation(marked, 6), QStringLiteral("turn-right.jpg"));
    const QImage read = readAll(turned);
    ASSERT_EQ(read.size(), QSize(64, 96));
    EXPECT_GT(qRed(read.pixel(60, 4)), 200) << "the corner is at the upper right now";
    EXPECT_LT(qRed(read.pixel(4, 4)), 50);
}

TEST_F(PictureFile, refusesAMissingFileAndAFolder)
{
    EXPECT_EQ(failureOf(folder.path(QStringLiteral("none.png"))), ExitCode::MissingInput);
    EXPECT_EQ(failureOf(folder.path(QStringLiteral("."))), ExitCode::MissingInput);
}

TEST_F(PictureFile, refusesAFileThatCannotBeOpened)
{
    // A socket: even root cannot open one as a file.
    const QByteArray path = folder.path(QStringLiteral("socket.png")).toUtf8();
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(failureOf(QString::fromUtf8(path)), ExitCode::MissingInput);
    close(server);
}

TEST_F(PictureFile, refusesWhatIsNoPicture)
{
    for (const QByteArray& bytes : { QByteArray(), QByteArray("hello"), QByteArray(5000, '\0') })
        EXPECT_EQ(
            failureOf(folder.save(bytes, QStringLiteral("bad.jpg"))), ExitCode::UnreadableInput);
}

TEST_F(PictureFile, refusesWhatItsEngineReadsByWayOfOthers)
{
    const QByteArray svg = R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)";
    EXPECT_EQ(failureOf(folder.save(svg, QStringLiteral("a.svg"))), ExitCode::UnreadableInput);
}

TEST_F(PictureFile, refusesATruncatedPicture)
{
    for (const char* const format : { "png", "jpg" }) {
        for (const int percent : { 5, 60, 98 }) {
            const QByteArray part = samples::truncated(samples::encoded(picture, format), percent);
            EXPECT_EQ(
                failureOf(folder.save(part, QStringLiteral("part"))), ExitCode::UnreadableInput)
                << percent << " % of a " << format;
        }
    }
}

TEST_F(PictureFile, makesAWorkingImageOfALargeJpeg)
{
    const QString path = folder.save(samples::picture({ 3200, 2000 }), QStringLiteral("large.jpg"));
    host::PictureFile file(path, host::ReadingRules());
    EXPECT_EQ(file.readWorkingImage().size(), QSize(640, 400));
    EXPECT_EQ(file.orientedSize(), QSize(3200, 2000));
}

TEST_F(PictureFile, isScaledAsSeen)
{
    QImage shades(96, 64, QImage::Format_RGB32);
    for (int y = 0; y < shades.height(); ++y) {
        for (int x = 0; x < shades.width(); ++x)
            shades.setPixel(x, y, qRgb(2 * x, 3 * y, 100));
    }
    const QString turned
        = folder.save(samples::jpegWithOrientation(shades.transformed(QTransform().rotate(-90)), 6),
            QStringLiteral("turned.jpg"));
    const QString deep
        = folder.save(shades.convertToFormat(QImage::Format_RGBA64), QStringLiteral("deep.png"));
    for (const QString& path : { turned, deep }) {
        for (const QSize& size : { QSize(192, 128), QSize(96, 64), QSize(40, 20) }) {
            const QImage scaled = host::PictureFile(path, host::ReadingRules()).readScaled(size);
            const QImage expected
                = shades.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            EXPECT_LE(mostDifference(scaled, expected), 12) << path.toStdString() << size.width();
        }
    }
}

TEST_F(PictureFile, analysesTransparencyOnMidGrey)
{
    QImage clear(64, 48, QImage::Format_ARGB32);
    clear.fill(qRgba(255, 0, 0, 0));
    const QString path = folder.save(clear, QStringLiteral("clear.png"));
    host::PictureFile file(path, host::ReadingRules());
    EXPECT_EQ(file.readWorkingImage().pixel(320, 240), qRgb(128, 128, 128));
}

TEST_F(PictureFile, tellsWhereARectangleLiesInTheStoredPicture)
{
    // Pixels of different colours: a rectangle must show the same colour before and after it is turned.
    QImage numbered(7, 4, QImage::Format_RGB32);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 7; ++x)
            numbered.setPixel(x, y, qRgb(30 * x, 60 * y, 0));
    }
    const QImage large = numbered.scaled(7 * 32, 4 * 32);
    for (char orientation = 1; orientation <= 8; ++orientation) {
        const QString path = folder.save(
            samples::jpegWithOrientation(large, orientation), QStringLiteral("turned.jpg"));
        host::PictureFile file(path, host::ReadingRules());
        EXPECT_EQ(file.orientation(), orientation);
        EXPECT_EQ(file.orientedSize(), orientation < 5 ? large.size() : large.size().transposed());
        const QImage seen = file.readAll();
        const QRect oriented(32, 64, 32, 32); // one of the pixels
        const QRect stored = file.toStored(oriented);
        const QRgb a = seen.pixel(oriented.center());
        const QRgb b = large.pixel(stored.center());
        EXPECT_NEAR(qRed(a), qRed(b), 8) << int { orientation };
        EXPECT_NEAR(qGreen(a), qGreen(b), 8) << int { orientation };
        EXPECT_EQ(stored.size(), QSize(32, 32));
    }
}

TEST_F(PictureFile, refusesTooManyPixelsBeforeItDecodesThem)
{
    host::ReadingRules rules;
    rules.mostPixels = qint64 { 96 } * 64 - 1;
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    EXPECT_THROW(host::PictureFile(path, rules), host::HostError);
    rules.mostPixels = qint64 { 96 } * 64;
    EXPECT_NO_THROW(host::PictureFile(path, rules));
    rules.mostBytes = 10;
    EXPECT_THROW(host::PictureFile(path, rules), host::HostError);
}

TEST_F(PictureFile, usesWhatThereIsOfADamagedJpegWhenAsked)
{
    const QByteArray part = samples::truncated(samples::encoded(picture, "jpg"), 60);
    host::ReadingRules rules;
    rules.onBroken = host::OnBroken::Warn;
    host::PictureFile file(folder.save(part, QStringLiteral("part.jpg")), rules);
    EXPECT_EQ(file.readAll().size(), picture.size());
    ASSERT_EQ(file.warnings().size(), 1);
    EXPECT_TRUE(file.warnings().first().contains(QStringLiteral("truncated")));
}

TEST_F(PictureFile, convertsInksWithoutAUsableProfileByThatOfUsualOnes)
{
    QByteArray profile = QColorSpace(QColorSpace::SRgb).iccProfile();
    profile.replace(16, 4, "CMYK"); // the colour space that the profile claims
    host::PictureFile file(
        folder.save(samples::cmykJpeg({ 64, 48 }, profile), QStringLiteral("inks.jpg")),
        host::ReadingRules());
    const QImage read = file.readAll();
    EXPECT_EQ(read.size(), QSize(64, 48));
    EXPECT_TRUE(file.warnings().isEmpty());
}

TEST_F(PictureFile, usesTheFirstFrameOfAnAnimationAndSaysSo)
{
    // Two frames of one pixel: the first black, the second white.
    const QByteArray frame = QByteArray::fromHex("2C000000000100010000");
    const QByteArray gif = QByteArray("GIF89a")
        + QByteArray::fromHex("01000100800000"
                              "000000FFFFFF")
        + frame + QByteArray::fromHex("0202440100") + frame + QByteArray::fromHex("02024C01003B");
    host::PictureFile file(folder.save(gif, QStringLiteral("moving.gif")), host::ReadingRules());
    EXPECT_EQ(file.readAll().pixel(0, 0), qRgb(0, 0, 0));
    ASSERT_EQ(file.warnings().size(), 1);
    EXPECT_TRUE(file.warnings().first().startsWith(QStringLiteral("animated")));
}

TEST_F(PictureFile, findsThatABmpOrAGifIsCutShortThoughItsDecoderDoesNot)
{
    const QByteArray bmp = samples::encoded(picture, "bmp");
    const QByteArray gif = QByteArray("GIF89a")
        + QByteArray::fromHex("01000100800000"
                              "000000FFFFFF"
                              "21F90400000000"
                              "00"
                              "2C000000000100010000"
                              "0202440100"
                              "3B");
    for (const QByteArray& whole : { bmp, gif }) {
        EXPECT_EQ(failureOf(folder.save(whole, QStringLiteral("whole"))), ExitCode::Success);
        const int trailerBytes = whole == gif ? 1 : 0; // the trailer
        const QString part
            = folder.save(whole.left(whole.size() - trailerBytes - 1), QStringLiteral("part"));
        EXPECT_EQ(failureOf(part), ExitCode::UnreadableInput);
        host::ReadingRules rules;
        rules.onBroken = host::OnBroken::Warn;
        EXPECT_EQ(host::PictureFile(part, rules).warnings().size(), 1);
    }
}

TEST_F(PictureFile, takesTheScreenOfAGifForThePictureNotItsFirstFrame)
{
    // A screen of 3 by 2 pixels with a frame of one pixel.
    const QByteArray gif = QByteArray("GIF89a")
        + QByteArray::fromHex("03000200800000"
                              "000000FFFFFF"
                              "2C000000000100010000"
                              "0202440100"
                              "3B");
    const QString path = folder.save(gif, QStringLiteral("screen.gif"));
    EXPECT_EQ(host::PictureFile(path, host::ReadingRules()).storedSize(), QSize(3, 2));
    EXPECT_EQ(readAll(path).size(), QSize(3, 2));
    host::ReadingRules rules;
    rules.mostPixels = 5;
    EXPECT_THROW(host::PictureFile(path, rules), host::HostError);
}

TEST_F(PictureFile, refusesFormatsWhoseDecodersCannotBeLimited)
{
    for (const char* const format : { "ico", "xbm" }) {
        const QString path = folder.save(
            samples::encoded(picture.scaled(32, 32), format), QStringLiteral("called.png"));
        EXPECT_EQ(failureOf(path), ExitCode::UnreadableInput) << format;
    }
}

TEST_F(PictureFile, refusesDevicesAndPipesThatNobodyWritesTo)
{
    EXPECT_EQ(failureOf(QStringLiteral("/dev/zero")), ExitCode::MissingInput);
    const QString pipe = folder.path(QStringLiteral("pipe.png"));
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    EXPECT_EQ(failureOf(pipe), ExitCode::UnreadableInput);
}

TEST_F(PictureFile, readsABmpWhoseRowsBeginAtTheTop)
{
    QByteArray bmp = samples::encoded(picture, "bmp");
    constexpr int heightAt = 22; // little-endian, 32 bits
    const auto height = qToLittleEndian<qint32>(-picture.height());
    bmp.replace(heightAt, 4, reinterpret_cast<const char*>(&height), 4);
    const QImage read = readAll(folder.save(bmp, QStringLiteral("top.bmp")));
    EXPECT_EQ(mostDifference(picture.mirrored(), read), 0);
}

TEST_F(PictureFile, givesUpWhatTakesTooLong)
{
    const QString path = folder.save(picture, QStringLiteral("slow.png"));
    host::ReadingRules rules;
    rules.mostSeconds = 0;
    try {
        host::PictureFile(path, rules).readAll();
        ADD_FAILURE() << "nothing takes no time";
    } catch (const host::HostError& error) {
        EXPECT_EQ(error.code(), ExitCode::UnreadableInput);
        EXPECT_TRUE(error.reason().contains(QStringLiteral("more than 0 seconds")));
    }
}

TEST_F(PictureFile, refusesMoreThanEightMegabytesOfMetadata)
{
    for (const int megabytes : { 3, 5 }) {
        QImage annotated = picture;
        annotated.setText(QStringLiteral("One"), QString(megabytes * 1'000'000, QLatin1Char('a')));
        annotated.setText(QStringLiteral("Two"), QString(megabytes * 1'000'000, QLatin1Char('b')));
        EXPECT_EQ(failureOf(folder.save(annotated, QStringLiteral("annotated.png"))),
            megabytes == 3 ? ExitCode::Success : ExitCode::UnreadableInput);
    }
}

TEST_F(PictureFile, refusesManyCompressedTextsBeforeItReadsThem)
{
    for (const int texts : { 20, 21 }) {
        QImage annotated = picture;
        for (int i = 0; i < texts; ++i) // Qt compresses long ones
            annotated.setText(QStringLiteral("Text%1").arg(i), QString(1000, QLatin1Char('a')));
        EXPECT_EQ(failureOf(folder.save(annotated, QStringLiteral("annotated.png"))),
            texts == 20 ? ExitCode::Success : ExitCode::UnreadableInput);
    }
}

TEST_F(PictureFile, cutsHaveTheColoursTheProfileAndTheResolutionOfATurnedPicture)
{
    QImage tagged = picture;
    tagged.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    tagged.setDotsPerMeterX(3937);
    tagged.setDotsPerMeterY(7874);
    for (char orientation = 1; orientation <= 8; ++orientation) {
        const QString path = folder.save(
            samples::jpegWithOrientation(tagged, orientation), QStringLiteral("tagged.jpg"));
        host::PictureFile file(path, host::ReadingRules());
        const QString written = folder.path(QStringLiteral("cut.png"));
        const QRect window(10, 20, 40, 30);
        host::PictureWriter(file.readCuts({ { window, window.size() } }).first(), written)
            .commit(true);
        const QImage cut(written);
        EXPECT_EQ(cut.colorSpace(), QColorSpace(QColorSpace::AdobeRgb)) << int { orientation };
        EXPECT_EQ(cut.dotsPerMeterX(), orientation < 5 ? 3937 : 7874) << int { orientation };
        QImageReader whole(path);
        whole.setAutoTransform(true);
        EXPECT_EQ(mostDifference(whole.read().copy(window), cut), 0) << int { orientation };
    }
}

TEST_F(PictureFile, cutsHaveSixteenBitsWhereThePictureHas)
{
    for (const QImage::Format format : { QImage::Format_Grayscale16, QImage::Format_RGBA64 }) {
        const QString path
            = folder.save(picture.convertToFormat(format), QStringLiteral("deep.png"));
        for (const int side : { 40, 20 }) {
            host::PictureFile file(path, host::ReadingRules());
            const QString written = folder.path(QStringLiteral("cut.png"));
            host::PictureWriter(
                file.readCuts({ { QRect(5, 5, 40, 40), QSize(side, side) } }).first(), written)
                .commit(true);
            const QImage cut(written);
            EXPECT_EQ(cut.format(), format);
            EXPECT_EQ(cut.size(), QSize(side, side));
        }
    }
}

TEST_F(PictureFile, takesABmpThatClaimsANegativeResolution)
{
    QByteArray bytes = samples::encoded(picture, "bmp");
    constexpr int placeOfResolution = 38;
    bytes.replace(placeOfResolution, 4, QByteArray("\xff\xff\xff\xff", 4));
    const QString path = folder.save(bytes, QStringLiteral("negative.bmp"));
    host::PictureFile file(path, host::ReadingRules());
    EXPECT_FALSE(file.readWorkingImage().isNull());
}

TEST_F(PictureFile, refusesAJpegOfManyScansInItsOwnWords)
{
    for (const int scans : { 100, 101, 190 }) {
        const QString path = folder.save(
            samples::jpegOfScans({ 64, 48 }, scans), QStringLiteral("%1.jpg").arg(scans));
        try {
            const host::PictureFile file(path, host::ReadingRules());
            EXPECT_EQ(scans, 100);
        } catch (const host::HostError& error) {
            EXPECT_GT(scans, 100) << error.what();
            EXPECT_EQ(error.reason(), QStringLiteral("the JPEG has more than 100 scans"));
        }
    }
}

TEST_F(PictureFile, refusesAPngThatClaimsMuchMetadata)
{
    QByteArray bytes = samples::encoded(picture, "png");
    constexpr int afterHeader = 33;
    bytes.insert(afterHeader, QByteArray("\x20\0\0\0tEXtfew", 11));
    const QString path = folder.save(bytes, QStringLiteral("claiming.png"));
    try {
        readAll(path);
        ADD_FAILURE() << "read it";
    } catch (const host::HostError& error) {
        EXPECT_EQ(error.reason(), QStringLiteral("its metadata takes more than 8 megabytes"));
    }
}
