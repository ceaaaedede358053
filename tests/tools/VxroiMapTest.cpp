#include "Program.h"
#include "SampleFiles.h"
#include "support/ImageAssert.h"

#include <VXCrop/VXCrop.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace {

class VxroiMap : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QImage picture = samples::picture({ 900, 600 });
    const QString path = folder.save(picture, QStringLiteral("picture.png"));
    const QString mapPath = folder.path(QStringLiteral("map.png"));
    const QString overlayPath = folder.path(QStringLiteral("overlay.png"));

    const VXCrop crop = VXCrop(picture);

    static Outcome map(const QStringList& arguments)
    {
        return runVxroi(QStringList { QStringLiteral("map") } + arguments);
    }
};

} // namespace

TEST_F(VxroiMap, writesTheBlendedMapAsAPng)
{
    const Outcome outcome = map({ path, QStringLiteral("-o"), mapPath });
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.isEmpty());
    EXPECT_EQ(QImageReader::imageFormat(mapPath), "png");
    EXPECT_EQ(support::reds(crop.map()), support::reds(QImage(mapPath)));
    EXPECT_EQ(QImage(mapPath).size(), QSize(640, 426));
}

TEST_F(VxroiMap, writesAnOverlayThatOutlinesTheCrop)
{
    const Outcome plain
        = map({ path, QStringLiteral("-o"), mapPath, QStringLiteral("--overlay"), overlayPath });
    EXPECT_EQ(plain.exitCode, 0) << plain.err.toStdString();
    const QImage withoutCrop(overlayPath);
    EXPECT_EQ(withoutCrop.width(), picture.width());
    EXPECT_GT(withoutCrop.height(), picture.height()) << "the scale is below the picture";

    const Outcome outlined = map({ path, QStringLiteral("-o"), mapPath, QStringLiteral("--overlay"),
        overlayPath, QStringLiteral("--ratio"), QStringLiteral("1:1"),
        QStringLiteral("--if-exists"), QStringLiteral("overwrite") });
    EXPECT_EQ(outlined.exitCode, 0) << outlined.err.toStdString();
    EXPECT_FALSE(support::sameImage(withoutCrop, QImage(overlayPath)));
}

TEST_F(VxroiMap, saysInTheCommentOfAStretchedMapWhichLevelsItHad)
{
    const Outcome outcome
        = map({ path, QStringLiteral("-o"), mapPath, QStringLiteral("--stretch") });
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    const std::vector<int> levels = support::reds(crop.map());
    const auto [least, most] = std::minmax_element(levels.begin(), levels.end());
    EXPECT_EQ(QImage(mapPath).text(QStringLiteral("Comment")),
        QStringLiteral("Levels %1 to %2, stretched to 0 to 255").arg(*least).arg(*most));
}

TEST_F(VxroiMap, overwritesNothingUnlessAsked)
{
    folder.save(QByteArray("mine"), QStringLiteral("map.png"));
    const QStringList writing { path, QStringLiteral("-o"), mapPath };
    const Outcome refused = map(writing);
    EXPECT_EQ(refused.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(refused.err, mapPath));
    EXPECT_EQ(QFileInfo(mapPath).size(), 4);
    EXPECT_EQ(
        map(writing + QStringList { QStringLiteral("--if-exists"), QStringLiteral("overwrite") })
            .exitCode,
        0);
    EXPECT_EQ(QImage(mapPath).size(), QSize(640, 426));
}

TEST_F(VxroiMap, writesBothFilesOrNeither)
{
    const QString impossible = folder.path(QStringLiteral("no/such/overlay.png"));
    const Outcome outcome
        = map({ path, QStringLiteral("-o"), mapPath, QStringLiteral("--overlay"), impossible });
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(outcome.err, impossible)) << outcome.err.toStdString();
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") });
}

TEST_F(VxroiMap, refusesOutputsThatCannotBe)
{
    const QString jpeg = folder.path(QStringLiteral("map.jpg"));
    for (const QStringList& outputs :
        { QStringList { QStringLiteral("-o"), jpeg }, QStringList { QStringLiteral("-o"), path },
            QStringList { QStringLiteral("-o"), mapPath, QStringLiteral("--overlay"), path } }) {
        const Outcome outcome = map(QStringList { path } + outputs);
        EXPECT_EQ(outcome.exitCode, 73) << outcome.err.toStdString();
        EXPECT_TRUE(isOneLineNaming(outcome.err, outputs.last())) << outcome.err.toStdString();
    }
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") });
}

TEST_F(VxroiMap, writesOneMapPerMethodIntoAFolder)
{
    const QString maps = folder.path(QStringLiteral("maps/of/picture"));
    const Outcome outcome = map({ path, QStringLiteral("--per-method"), maps });
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_EQ(QDir(maps).entryList(QDir::Files, QDir::Name).join(QLatin1Char(' ')),
        QStringLiteral("background.png"));
    for (const VXCropMap& expected : crop.methodMaps()) {
        const QImage written(QStringLiteral("%1/%2.png").arg(maps, expected.method));
        EXPECT_EQ(support::reds(expected.map), support::reds(written));
    }
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") }) << "no blended map";
}

TEST_F(VxroiMap, refusesAFolderThatIsAFile)
{
    const Outcome outcome
        = map({ path, QStringLiteral("-o"), mapPath, QStringLiteral("--per-method"), path });
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(outcome.err, path)) << outcome.err.toStdString();
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") });
}

TEST_F(VxroiMap, refusesToOverwriteThePictureByTheMapOfAMethod)
{
    const QString named = folder.save(picture, QStringLiteral("background.png"));
    const Outcome outcome = map({ named, QStringLiteral("--per-method"), folder.path(QString()) });
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("background.png")));
    EXPECT_EQ(folder.names().size(), 2);
}

TEST_F(VxroiMap, refusesToWriteNothing)
{
    const Outcome outcome = map({ path });
    EXPECT_EQ(outcome.exitCode, 64);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("--per-method")))
        << outcome.err.toStdString();
}

TEST_F(VxroiMap, refusesTheSameNameForMapAndOverlay)
{
    const Outcome outcome
        = map({ path, QStringLiteral("-o"), mapPath, QStringLiteral("--overlay"), mapPath });
    EXPECT_EQ(outcome.exitCode, 64);
    EXPECT_TRUE(isOneLineNaming(outcome.err, mapPath)) << outcome.err.toStdString();
}

TEST_F(VxroiMap, refusesABadRatioAndWritesNothing)
{
    const Outcome outcome = map({ path, QStringLiteral("-o"), mapPath, QStringLiteral("--overlay"),
        overlayPath, QStringLiteral("--ratio"), QStringLiteral("0:0") });
    EXPECT_EQ(outcome.exitCode, 64);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("0:0"))) << outcome.err.toStdString();
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("picture.png") });
}

TEST_F(VxroiMap, refusesABrokenPictureAndWritesNothing)
{
    const QString broken = folder.save(
        samples::truncated(samples::encoded(picture, "jpg"), 50), QStringLiteral("broken.jpg"));
    const Outcome outcome = map({ broken, QStringLiteral("-o"), mapPath });
    EXPECT_EQ(outcome.exitCode, 65);
    EXPECT_TRUE(isOneLineNaming(outcome.err, broken)) << outcome.err.toStdString();
    EXPECT_FALSE(QFile::exists(mapPath));
}
