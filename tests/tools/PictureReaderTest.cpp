#include "host/PictureReader.h"

#include "SampleFiles.h"
#include "host/HostError.h"
#include "support/ImageAssert.h"

#include <algorithm>
#include <iterator>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using host::ExitCode;

class PictureReader : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 96, 64 });

    static ExitCode failureOf(const QString& path)
    {
        try {
            host::readPicture(path);
        } catch (const host::HostError& error) {
            EXPECT_EQ(std::string(error.what()).rfind(path.toStdString(), 0), 0U) << error.what();
            return error.code();
        }
        return ExitCode::Success;
    }
};

} // namespace

TEST_F(PictureReader, readsAnyDepthAsArgb32)
{
    for (const QImage::Format format : { QImage::Format_RGB32, QImage::Format_ARGB32,
             QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_Indexed8,
             QImage::Format_RGBA64, QImage::Format_Mono }) {
        const QImage stored = picture.convertToFormat(format);
        const QImage read = host::readPicture(folder.save(stored, QStringLiteral("depth.png")));
        EXPECT_TRUE(support::sameImage(stored.convertToFormat(QImage::Format_ARGB32), read));
    }
}

TEST_F(PictureReader, keepsTransparency)
{
    QImage stored = picture.convertToFormat(QImage::Format_ARGB32);
    stored.setPixel(3, 3, qRgba(200, 100, 50, 40));
    const QImage read = host::readPicture(folder.save(stored, QStringLiteral("alpha.png")));
    EXPECT_EQ(read.pixel(3, 3), qRgba(200, 100, 50, 40));
}

TEST_F(PictureReader, letsTheContentDecideTheFormat)
{
    const QString path
        = folder.save(samples::encoded(picture, "png"), QStringLiteral("really-a-png.jpg"));
    EXPECT_EQ(host::readPicture(path).size(), QSize(96, 64));
}

TEST_F(PictureReader, appliesTheExifOrientation)
{
    QImage marked(96, 64, QImage::Format_RGB32);
    marked.fill(Qt::black);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            marked.setPixel(x, y, qRgb(255, 255, 255)); // a white corner at the upper left
    }
    const QString turned
        = folder.save(samples::jpegWithOrientation(marked, 6), QStringLiteral("turn-right.jpg"));
    const QImage read = host::readPicture(turned);
    ASSERT_EQ(read.size(), QSize(64, 96));
    EXPECT_GT(qRed(read.pixel(60, 4)), 200) << "the corner is at the upper right now";
    EXPECT_LT(qRed(read.pixel(4, 4)), 50);
}

TEST_F(PictureReader, refusesAMissingFileAndAFolder)
{
    EXPECT_EQ(failureOf(folder.path(QStringLiteral("none.png"))), ExitCode::MissingInput);
    EXPECT_EQ(failureOf(folder.path(QStringLiteral("."))), ExitCode::MissingInput);
}

TEST_F(PictureReader, refusesAFileThatCannotBeOpened)
{
    // A socket: even root, who may open every file, cannot open it.
    const QByteArray path = folder.path(QStringLiteral("socket.png")).toUtf8();
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(failureOf(QString::fromUtf8(path)), ExitCode::MissingInput);
    close(server);
}

TEST_F(PictureReader, refusesWhatIsNoPicture)
{
    for (const QByteArray& bytes : { QByteArray(), QByteArray("hello"), QByteArray(5000, '\0') })
        EXPECT_EQ(
            failureOf(folder.save(bytes, QStringLiteral("bad.jpg"))), ExitCode::UnreadableInput);
}

TEST_F(PictureReader, refusesATruncatedPicture)
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
