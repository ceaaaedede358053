#include "Program.h"
#include "SampleFiles.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

class VxroiCluster : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QString path
        = folder.save(samples::picture({ 1200, 800 }), QStringLiteral("picture.png"));
    const QString output = folder.path(QStringLiteral("cells.png"));

    Outcome cluster(const QStringList& more) const
    {
        return runVxroi(QStringList { QStringLiteral("cluster"), path } + more);
    }
};

} // namespace

TEST_F(VxroiCluster, printsATableOfTheCellsRowByRow)
{
    const Outcome outcome
        = cluster({ QStringLiteral("--grid"), QStringLiteral("6x4"), QStringLiteral("--json") });
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    const QJsonObject table = QJsonDocument::fromJson(outcome.out).object();
    EXPECT_EQ(table.value(QStringLiteral("columns")).toInt(), 6);
    EXPECT_EQ(table.value(QStringLiteral("rows")).toInt(), 4);
    const QJsonArray cells = table.value(QStringLiteral("cells")).toArray();
    ASSERT_EQ(cells.size(), 24);
    const QJsonObject ninth = cells.at(8).toObject();
    EXPECT_EQ(ninth.value(QStringLiteral("column")).toInt(), 2);
    EXPECT_EQ(ninth.value(QStringLiteral("row")).toInt(), 1);
    const QJsonObject area = ninth.value(QStringLiteral("area")).toObject();
    EXPECT_EQ(area.value(QStringLiteral("x")).toInt(), 400);
    EXPECT_EQ(area.value(QStringLiteral("width")).toInt(), 200);
}

TEST_F(VxroiCluster, paintsTheCellsInTheLevelsOfTheTable)
{
    const Outcome outcome = cluster({ QStringLiteral("--grid"), QStringLiteral("12x8"),
        QStringLiteral("-o"), output, QStringLiteral("--json") });
    const QImage painted(output);
    ASSERT_FALSE(painted.isNull());
    EXPECT_EQ(painted.width() % 12, 0);
    const QJsonArray cells
        = QJsonDocument::fromJson(outcome.out).object().value(QStringLiteral("cells")).toArray();
    ASSERT_EQ(cells.size(), 96);
    for (int i = 0; i < 96; ++i) {
        const QPoint middle(
            (i % 12 * 2 + 1) * painted.width() / 24, (i / 12 * 2 + 1) * painted.height() / 16);
        EXPECT_EQ(qRed(painted.pixel(middle)),
            cells.at(i).toObject().value(QStringLiteral("level")).toInt());
    }
}

TEST_F(VxroiCluster, printsNothingUnlessAsked)
{
    const Outcome painted = cluster({ QStringLiteral("-o"), output });
    EXPECT_EQ(painted.exitCode, 0) << painted.err.toStdString();
    EXPECT_TRUE(painted.out.isEmpty());
    EXPECT_FALSE(QImage(output).isNull());

    const Outcome refused = cluster({});
    EXPECT_EQ(refused.exitCode, 64);
    EXPECT_TRUE(isOneLineNaming(refused.err, QStringLiteral("add --json or --output")))
        << refused.err.toStdString();
}

TEST_F(VxroiCluster, refusesWhatIsNoGridAndOutputsThatCannotBe)
{
    const Outcome noGrid
        = cluster({ QStringLiteral("--grid"), QStringLiteral("12"), QStringLiteral("--json") });
    EXPECT_EQ(noGrid.exitCode, 64);
    EXPECT_TRUE(isOneLineNaming(noGrid.err, QStringLiteral("12"))) << noGrid.err.toStdString();
    EXPECT_EQ(
        cluster({ QStringLiteral("-o"), folder.path(QStringLiteral("cells.jpg")) }).exitCode, 73);
    EXPECT_EQ(cluster({ QStringLiteral("-o"), path }).exitCode, 73);
    folder.save(QByteArray("mine"), QStringLiteral("cells.png"));
    const Outcome refused = cluster({ QStringLiteral("-o"), output });
    EXPECT_EQ(refused.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(refused.err, output));
    EXPECT_TRUE(refused.out.isEmpty());
}
