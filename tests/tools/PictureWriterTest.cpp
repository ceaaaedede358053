#include "host/picture/PictureWriter.h"

#include "SampleFiles.h"
#include "host/HostError.h"
#include "host/picture/PictureFile.h"
#include "support/ImageAssert.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {

using host::ExitCode;

class PictureWriter : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 60, 40 });

    ExitCode failureOf(const QString& path) const
    {
        try {
            host::PictureWriter(picture, path).commit(true);
        } catch (const host::HostError& error) {
            EXPECT_EQ(std::string(error.what()).rfind(path.toStdString(), 0), 0U) << error.what();
            return error.code();
        }
        return ExitCode::Success;
    }
};

} // namespace

TEST_F(PictureWriter, writesTheFormatThatTheSuffixNames)
{
    for (const char* const name : { "a.png", "b.jpg", "c.JPEG", "d.bmp" }) {
        const QString path = folder.path(QString::fromUtf8(name));
        EXPECT_EQ(failureOf(path), ExitCode::Success);
        EXPECT_EQ(QImage(path).size(), picture.size()) << name;
    }
}

TEST_F(PictureWriter, givesTheFileItsNameAtTheCommitOnly)
{
    const QString path = folder.path(QStringLiteral("late.png"));
    {
        host::PictureWriter writer(picture, path);
        EXPECT_FALSE(QFile::exists(path));
    }
    EXPECT_TRUE(folder.names().isEmpty()) << "an abandoned writer leaves nothing";
}

TEST_F(PictureWriter, replacesAFileOfThatName)
{
    const QString path = folder.save(QByteArray("old"), QStringLiteral("old.png"));
    EXPECT_EQ(failureOf(path), ExitCode::Success);
    EXPECT_EQ(QImage(path).size(), picture.size());
}

TEST_F(PictureWriter, refusesNamesThatCannotBeWritten)
{
    // An icon would have to be reduced, and a black and white format would lose the colours.
    for (const char* const name :
        { "no-suffix", "odd.xyz", "a.ico", "a.xbm", "no/such/folder/a.png" })
        EXPECT_EQ(failureOf(folder.path(QString::fromUtf8(name))), ExitCode::CannotCreate) << name;
    EXPECT_TRUE(folder.names().isEmpty());
}

TEST_F(PictureWriter, refusesToOverwriteTheInputUnderAnyOfItsNames)
{
    const QString path = folder.save(picture, QStringLiteral("input.png"));
    QFile::link(path, folder.path(QStringLiteral("link.png")));
    for (const char* const name : { "input.png", "./input.png", "link.png" }) {
        EXPECT_THROW(host::refuseToOverwriteInput(path, folder.path(QString::fromUtf8(name))),
            host::HostError)
            << name;
    }
    EXPECT_NO_THROW(host::refuseToOverwriteInput(path, folder.path(QStringLiteral("other.png"))));
    EXPECT_NO_THROW(host::refuseToOverwriteInput(path, QString()));
}

TEST_F(PictureWriter, replacesNothingThatIsNoFile)
{
    const QString pipe = folder.path(QStringLiteral("pipe.png"));
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    EXPECT_EQ(failureOf(pipe), ExitCode::CannotCreate);
    const QString subfolder = folder.path(QStringLiteral("folder.png"));
    ASSERT_TRUE(QDir().mkdir(subfolder));
    EXPECT_EQ(failureOf(subfolder), ExitCode::CannotCreate);
}

TEST_F(PictureWriter, saysThatASizeIsBeyondTheFormat)
{
    const QString path = folder.path(QStringLiteral("wide.jpg"));
    const QImage wide(70000, 1, QImage::Format_RGB32);
    try {
        const host::PictureWriter writer(wide, path);
        ADD_FAILURE() << "no JPEG is that wide";
    } catch (const host::HostError& error) {
        EXPECT_EQ(error.code(), ExitCode::CannotCreate);
        EXPECT_TRUE(error.reason().contains(QStringLiteral("70000 x 1")));
    }
    EXPECT_TRUE(folder.names().isEmpty());
}

TEST_F(PictureWriter, putsWhiteWhereAFormatKnowsNoTransparency)
{
    for (const QImage::Format format : { QImage::Format_ARGB32, QImage::Format_RGBA64 }) {
        QImage clear(60, 40, format);
        clear.fill(Qt::transparent);
        const QString source = folder.save(clear, QStringLiteral("clear.png"));
        for (const char* const name : { "a.jpg", "a.ppm", "a.bmp" }) {
            const QString path = folder.path(QString::fromUtf8(name));
            host::PictureFile file(source, host::ReadingRules());
            const QRect all(QPoint(), clear.size());
            host::PictureWriter(file.readCuts({ { all, all.size() } }).first(), path).commit(true);
            EXPECT_EQ(QImage(path).pixel(30, 20), qRgb(255, 255, 255)) << name << format;
        }
    }
}
