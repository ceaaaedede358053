#include "host/PictureWriter.h"

#include "SampleFiles.h"
#include "host/HostError.h"
#include "support/ImageAssert.h"

#include <QFile>

namespace {

using host::ExitCode;

class PictureWriter : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 60, 40 });

    ExitCode failureOf(const QString& path) const
    {
        try {
            host::PictureWriter(picture, path).commit();
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
    for (const char* const name : { "no-suffix", "odd.xyz", "no/such/folder/a.png" })
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
