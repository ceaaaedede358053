#include "Program.h"
#include "SampleFiles.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

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

    int count(const char* text) const { return page().count(QString::fromUtf8(text)); }
};

// Every pixel differs from its neighbours, which is the hardest picture to encode.
QImage noise(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525 + 1013904223;
            image.setPixel(x, y, 0xff000000 | state >> 8);
        }
    }
    return image;
}

// The first group of every match of \a pattern.
QStringList allOf(const QString& pattern, const QString& text)
{
    QStringList found;
    QRegularExpressionMatchIterator matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    return found;
}

} // namespace

TEST_F(VxroiReport, isOnePageThatNeedsNothingElse)
{
    const Outcome outcome = report({ folder.path(QStringLiteral("in")) });
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_EQ(count("<article"), 2);
    static const QRegularExpression elsewhere(
        QStringLiteral("(src|href)=\"(?!data:|#)|@import|url\\((?!#)|https?:"));
    EXPECT_FALSE(page().contains(elsewhere));
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("report.html") });
}

TEST_F(VxroiReport, holdsEachPictureAndItsMapOnceAndShowsCropsAsViewsOfIt)
{
    report({ folder.path(QStringLiteral("in/a.png")), QStringLiteral("--ratio"),
        QStringLiteral("1:1,3:1") });
    EXPECT_EQ(count("data:image/jpeg"), 2);
    EXPECT_EQ(count("id=\"picture-0\""), 1);
    EXPECT_EQ(count("<use href=\"#picture-0\"/>"), 4); // chosen and centred for two shapes
    EXPECT_EQ(count(">chosen: "), 2);
    EXPECT_EQ(count(">centre: "), 2);
}

TEST_F(VxroiReport, showsTheMapsOfMethodsWhenAsked)
{
    const QString picture = folder.path(QStringLiteral("in/a.png"));
    const QStringList library { QStringLiteral("--preset"), QStringLiteral("library") };
    report(library + QStringList { picture });
    EXPECT_EQ(count("<img "), 0);
    QFile::remove(output);
    report(library + QStringList { QStringLiteral("--methods"), picture });
    EXPECT_EQ(count("<img "), 4);
    for (const char* const name : { "sobel", "gauss", "histogram", "achanta" })
        EXPECT_TRUE(page().contains(QStringLiteral("<figcaption>%1<").arg(QLatin1String(name))))
            << name;
}

TEST_F(VxroiReport, showsTheSettingsAndTheVersion)
{
    report({ folder.path(QStringLiteral("in/a.png")), QStringLiteral("--weight"),
        QStringLiteral("gauss=3") });
    EXPECT_EQ(
        count("300 × 200 pixels, vxroi " VXROI_VERSION ", settings: gauss=3 background=20<"), 1);
    EXPECT_EQ(count("Pictures: 1, failed: 0. Drawn by vxroi " VXROI_VERSION "."), 1);
}

TEST_F(VxroiReport, outlinesWindowsInColoursAndDashesOfTheirOwn)
{
    const QStringList shapes { QStringLiteral("1:1"), QStringLiteral("2:1"), QStringLiteral("3:1"),
        QStringLiteral("4:1"), QStringLiteral("5:1"), QStringLiteral("1:2"), QStringLiteral("1:3"),
        QStringLiteral("1:4") };
    report({ folder.path(QStringLiteral("in/a.png")), QStringLiteral("--ratio"),
        shapes.join(QLatin1Char(',')) });
    const QString html = page();
    const QStringList lines = allOf(QStringLiteral("<rect class=\"line ([^\"]*)\""), html);
    EXPECT_EQ(lines.size(), shapes.size());
    EXPECT_EQ(QSet<QString>(lines.begin(), lines.end()).size(), shapes.size());
    EXPECT_NE(lines.at(0).right(2), lines.at(1).right(2)); // not by colour alone
    for (const QString& classes : lines) {
        for (const QString& name : classes.split(QLatin1Char(' ')))
            EXPECT_TRUE(html.contains(QStringLiteral("\n.%1 {").arg(name))) << name.toStdString();
        EXPECT_TRUE(html.contains(QStringLiteral("<path class=\"line %1\"").arg(classes)));
    }
    EXPECT_EQ(allOf(QStringLiteral("<text [^>]*>([^<]*)<"), html), shapes);
    EXPECT_EQ(allOf(QStringLiteral("<h3>.*</svg> ([^<]*)<"), html), shapes);
}

TEST_F(VxroiReport, putsNoLabelOverAnother)
{
    report({ folder.path(QStringLiteral("in/a.png")), QStringLiteral("--ratio"),
        QStringLiteral("1:3,1:4,1:5,3:2"), QStringLiteral("--preset"), QStringLiteral("library") });
    const QStringList tops = allOf(QStringLiteral("<text [^>]*y=\"([^\"]*)\""), page());
    ASSERT_EQ(tops.size(), 4);
    EXPECT_EQ(QSet<QString>(tops.begin(), tops.begin() + 3).size(), 3);
}

TEST_F(VxroiReport, hasHeatThatIsOffAtFirst)
{
    report({ folder.path(QStringLiteral("in")) });
    const QString html = page();
    EXPECT_EQ(html.count(QStringLiteral("class=\"heat\" filter=\"url(#heat)\"")), 2);
    EXPECT_TRUE(html.contains(QStringLiteral("<filter id=\"heat\"")));
    EXPECT_EQ(allOf(QStringLiteral("class=\"heat-control\" id=\"([^\"]*)\""), html),
        allOf(QStringLiteral("<label for=\"(heat-[^\"]*)\""), html));
    EXPECT_EQ(html.count(QStringLiteral("class=\"heat-control\"")), 2);
    EXPECT_TRUE(html.contains(QStringLiteral(".heat { display: none; }")));
    EXPECT_FALSE(html.contains(QRegularExpression(QStringLiteral("<input[^>]* checked"))));
}

TEST_F(VxroiReport, needsLessThanTwentyKilobytesForAPicture)
{
    const QString noisy = folder.save(noise({ 1600, 1600 }), QStringLiteral("noise.png"));
    const QString one = folder.save(samples::picture({ 1600, 1200 }), QStringLiteral("one.png"));
    const QStringList shapes { QStringLiteral("--ratio"), QStringLiteral("1:1,16:9,4:5") };
    for (const QString& picture : { noisy, one }) {
        EXPECT_EQ(report(shapes + QStringList { picture }).exitCode, 0);
        const QStringList articles = allOf(QStringLiteral("(?s)(<article.*</article>)"), page());
        ASSERT_EQ(articles.size(), 1);
        EXPECT_LT(articles.first().toUtf8().size(), 20000) << picture.toStdString();
        QFile::remove(output);
    }
}

TEST_F(VxroiReport, tellsTheColumnInEveryCellForNarrowScreens)
{
    report({ folder.path(QStringLiteral("in/a.png")) });
    const QStringList columns = allOf(QStringLiteral("<th>([^<]*)<"), page());
    EXPECT_EQ(columns.size(), 6);
    EXPECT_EQ(allOf(QStringLiteral("<td data-label=\"([^\"]*)\""), page()), columns);
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
    EXPECT_EQ(count("<article"), 3);
}

TEST_F(VxroiReport, tellsWhatFailedAndShowsTheRest)
{
    const QString broken = folder.save(QByteArray("none"), QStringLiteral("in/broken.jpg"));
    const Outcome outcome = report({ folder.path(QStringLiteral("in")) });
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(isOneLineNaming(outcome.err, broken));
    EXPECT_EQ(count("class=\"failure\""), 1);
    EXPECT_EQ(count("<article"), 3);
    EXPECT_EQ(count("Pictures: 3, failed: 1."), 1);
}

TEST_F(VxroiReport, writesNoPageWhereThereIsNoPicture)
{
    QDir(folder.path(QString())).mkpath(QStringLiteral("empty"));
    const Outcome outcome = report({ folder.path(QStringLiteral("empty")) });
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("nothing to do")));
    EXPECT_EQ(folder.names(), QStringList());
}

TEST_F(VxroiReport, refusesWhatItCannotWrite)
{
    EXPECT_EQ(report({ folder.path(QStringLiteral("in/none.png")) }).exitCode, 1);
    QFile::remove(output);
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
