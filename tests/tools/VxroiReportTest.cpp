#include "Program.h"
#include "SampleFiles.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

class VxroiReport : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QString output = folder.path(QStringLiteral("report.html"));

    void SetUp() override
    {
        QDir(folder.path(QString())).mkpath(QStringLiteral("in/deeper"));
        folder.save(samples::picture({ 300, 200 }), QStringLiteral("in/a.png"));
        folder.save(samples::picture({ 200, 300 }), QStringLiteral("in/<b>&.png"));
        folder.save(samples::picture({ 90, 60 }), QStringLiteral("in/deeper/c.png"));
    }

    Outcome report(const QStringList& more) const
    {
        return runVxroi(
            QStringList { QStringLiteral("report"), QStringLiteral("-o"), output } + more);
    }

    QString page() const
    {
        QFile file(output);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }
};

} // namespace

TEST_F(VxroiReport, isOnePageThatNeedsNothingElse)
{
    const Outcome outcome = report({ folder.path(QStringLiteral("in")) });
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    const QString html = page();
    EXPECT_EQ(html.count(QStringLiteral("<article")), 2);
    static const QRegularExpression elsewhere(
        QStringLiteral("(src|href)=\"(?!data:)|@import|url\\(|https?:"));
    EXPECT_FALSE(html.contains(elsewhere));
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("report.html") });
}

TEST_F(VxroiReport, showsThePictureTwoCropsAndTheMapsOfEach)
{
    report({ folder.path(QStringLiteral("in/a.png")), QStringLiteral("--ratio"),
        QStringLiteral("1:1,3:1"), QStringLiteral("--preset"), QStringLiteral("library") });
    // The picture, two crops for each of two shapes, the blended map and those of four methods.
    EXPECT_EQ(page().count(QStringLiteral("<img ")), 1 + 4 + 5);
    EXPECT_EQ(page().count(QStringLiteral("class=\"ours\"")), 2);
    for (const char* const name : { "sobel", "gauss", "histogram", "achanta", "blended" })
        EXPECT_TRUE(page().contains(QStringLiteral("<figcaption>%1<").arg(QLatin1String(name))))
            << name;
}

TEST_F(VxroiReport, writesNamesAsTextAndNeverAsMarkup)
{
    report({ folder.path(QStringLiteral("in")) });
    EXPECT_TRUE(page().contains(QStringLiteral("&lt;b&gt;&amp;.png")));
    EXPECT_FALSE(page().contains(QStringLiteral("<b>&")));
}

TEST_F(VxroiReport, looksIntoFoldersWhenAsked)
{
    report({ folder.path(QStringLiteral("in")), QStringLiteral("-r") });
    EXPECT_EQ(page().count(QStringLiteral("<article")), 3);
}

TEST_F(VxroiReport, tellsWhatFailedAndShowsTheRest)
{
    const QString broken = folder.save(QByteArray("none"), QStringLiteral("in/broken.jpg"));
    const Outcome outcome = report({ folder.path(QStringLiteral("in")) });
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(isOneLineNaming(outcome.err, broken));
    EXPECT_EQ(page().count(QStringLiteral("class=\"failure\"")), 1);
    EXPECT_EQ(page().count(QStringLiteral("<article")), 3);
}

TEST_F(VxroiReport, refusesWhatItCannotWriteAndFoldersWithoutPictures)
{
    EXPECT_EQ(report({ folder.path(QStringLiteral("in/none.png")) }).exitCode, 1);
    QFile::remove(output);
    QDir(folder.path(QString())).mkpath(QStringLiteral("empty"));
    EXPECT_EQ(report({ folder.path(QStringLiteral("empty")) }).exitCode, 66);
    EXPECT_FALSE(QFile::exists(output));
    folder.save(QByteArray("mine"), QStringLiteral("report.html"));
    const Outcome refused = report({ folder.path(QStringLiteral("in")) });
    EXPECT_EQ(refused.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(refused.err, output));
    EXPECT_EQ(page(), QStringLiteral("mine"));
    const QString ours = folder.path(QStringLiteral("in/a.png"));
    EXPECT_EQ(runVxroi({ QStringLiteral("report"), ours, QStringLiteral("-o"), ours,
                           QStringLiteral("--if-exists"), QStringLiteral("overwrite") })
                  .exitCode,
        73);
}
