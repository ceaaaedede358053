#include "Program.h"
#include "SampleFiles.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

// Pages made from the records of a batch.
class VxroiReportRecords : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QString pictures = folder.path(QStringLiteral("in"));
    const QString records = folder.path(QStringLiteral("records.jsonl"));
    const QString output = folder.path(QStringLiteral("report.html"));

    void SetUp() override
    {
        QDir(folder.path(QString())).mkpath(QStringLiteral("in"));
        folder.save(samples::picture({ 300, 200 }), QStringLiteral("in/a.png"));
        folder.save(samples::picture({ 200, 300 }), QStringLiteral("in/b.png"));
    }

    void crop() const
    {
        const Outcome outcome = runVxroi({ QStringLiteral("batch"), pictures,
            QStringLiteral("--ratio"), QStringLiteral("1:1,3:1"), QStringLiteral("-q") });
        folder.save(outcome.out, QStringLiteral("records.jsonl"));
    }

    Outcome report(const QStringList& arguments) const
    {
        return runVxroi(
            QStringList { QStringLiteral("report"), QStringLiteral("-o"), output } + arguments);
    }

    Outcome reportOf(const QByteArray& lines) const
    {
        folder.save(lines, QStringLiteral("records.jsonl"));
        return report({ QStringLiteral("--from"), records });
    }

    QString contentOf(const QString& path) const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }

    QString page() const { return contentOf(output); }
    int count(const char* text) const { return page().count(QString::fromUtf8(text)); }

    // A record of in/a.png with a window that no analysis would choose.
    QByteArray lineWith(const QByteArray& settings, const QByteArray& shape) const
    {
        return R"({"path":")" + pictures.toUtf8() + R"(/a.png","version":"9.8.7","settings":")"
            + settings + R"(","status":"ok","picture":{"format":"png","orientation":1,)"
            + R"("oriented":{"width":300,"height":200},"source":{"width":300,"height":200}},)"
            + R"("crops":[{"shape":")" + shape + R"(","decidedBy":"keep",)"
            + R"("oriented":{"x":7,"y":5,"width":90,"height":90},)"
            + R"("source":{"x":7,"y":5,"width":90,"height":90},"focus":{"x":0.5,"y":0.5},)"
            + R"("salience":0.125,"centreSalience":0.25,"output":{"width":90,"height":90}}]})"
            + "\n";
    }
};

QString withoutHeat(QString page)
{
    static const QRegularExpression heat(
        QStringLiteral("<image class=\"heat\"[^>]*>|<input[^>]*heat-control[^>]*>[^\n]*\n"));
    return page.remove(heat);
}

} // namespace

TEST_F(VxroiReportRecords, makeThePageThatThePicturesMakeButForTheirMaps)
{
    folder.save(QByteArray("none"), QStringLiteral("in/broken.jpg"));
    crop();
    EXPECT_EQ(report({ QStringLiteral("--from"), records }).exitCode, 1);
    const QString drawn = page();
    QFile::remove(output);
    EXPECT_EQ(
        report({ pictures, QStringLiteral("--ratio"), QStringLiteral("1:1,3:1") }).exitCode, 1);
    EXPECT_EQ(count("class=\"heat-control\""), 2);
    EXPECT_EQ(withoutHeat(page()), drawn);
    EXPECT_EQ(drawn.count(QStringLiteral("class=\"heat-control\"")), 0);
    EXPECT_EQ(drawn.count(QStringLiteral("<article")), 3);
}

TEST_F(VxroiReportRecords, areShownAsTheyAreAndNotChosenAgain)
{
    EXPECT_EQ(reportOf(lineWith("old", "1:1")).exitCode, 0);
    EXPECT_EQ(count("<td data-label=\"window\">90x90+7+5<"), 1);
    EXPECT_EQ(count("<td data-label=\"decided by\">keep<"), 1);
    EXPECT_EQ(count("<td data-label=\"keeps\">12.5 %<"), 1);
    EXPECT_EQ(count("viewBox=\"7 5 90 90\""), 1);
    EXPECT_EQ(count("vxroi 9.8.7, settings: old<"), 1);
}

TEST_F(VxroiReportRecords, mayHaveOtherShapesEach)
{
    EXPECT_EQ(reportOf(lineWith("photo", "1:1") + '\n' + lineWith("photo", "90x90")).exitCode, 0);
    EXPECT_EQ(count(">1:1</text>"), 1);
    EXPECT_EQ(count(">90x90</text>"), 1);
    EXPECT_EQ(count("<article"), 2);
}

TEST_F(VxroiReportRecords, areTextAndNeverMarkup)
{
    EXPECT_EQ(reportOf(lineWith("<i>%1", "<u>%2")).exitCode, 0);
    EXPECT_FALSE(page().contains(QRegularExpression(QStringLiteral("<[iu]>"))));
    EXPECT_TRUE(page().contains(QStringLiteral("settings: &lt;i&gt;%1<")));
    EXPECT_EQ(count("&lt;u&gt;%2"), 5); // label, heading, two descriptions, row
}

TEST_F(VxroiReportRecords, comeFromStandardInput)
{
    crop();
    const Outcome outcome = runShell(
        QStringLiteral("cat '%2' | $VXROI report --from - -o '%1'").arg(output, records));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_EQ(count("<article"), 2);
}

TEST_F(VxroiReportRecords, areRefusedWhereStandardInputIsClosedOrNeverEndsALine)
{
    for (const char* const command : { "$VXROI report --from - -o page.html <&-",
             "head -c 20000000 /dev/zero | $VXROI report --from - -o page.html" }) {
        const Outcome outcome
            = runShell(QStringLiteral("cd '%1' && timeout 60 sh -c '%2'")
                           .arg(folder.path(QString()), QString::fromLatin1(command)));
        EXPECT_EQ(outcome.exitCode, 65) << command;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("standard input, line 1: ")))
            << command;
        EXPECT_EQ(folder.names(), QStringList()) << command;
    }
}

TEST_F(VxroiReportRecords, ofPicturesThatAreGoneKeepTheirNumbers)
{
    crop();
    QFile::remove(pictures + QStringLiteral("/b.png"));
    const Outcome outcome = report({ QStringLiteral("--from"), records });
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(
        isOneLineNaming(outcome.err, QStringLiteral("/b.png: the picture of the record is gone")));
    EXPECT_EQ(count("class=\"failure\""), 1);
    EXPECT_EQ(count("the picture of the record is gone"), 1);
    EXPECT_EQ(count("data:image/jpeg"), 1);
    EXPECT_EQ(count("<td data-label=\"keeps\">"), 4);
}

TEST_F(VxroiReportRecords, ofPicturesThatHaveChangedTheirSizeKeepTheirNumbers)
{
    crop();
    folder.save(samples::picture({ 100, 200 }), QStringLiteral("in/b.png"));
    const Outcome outcome = report({ QStringLiteral("--from"), records });
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("a different size")));
    EXPECT_EQ(count("data:image/jpeg"), 1);
    EXPECT_EQ(count("<td data-label=\"keeps\">"), 4);
}

TEST_F(VxroiReportRecords, ofStandardInputShowNoPicture)
{
    const QString picture = pictures + QStringLiteral("/a.png");
    runShell(
        QStringLiteral("$VXROI crop - --ratio 1:1 --json < '%1' > '%2'").arg(picture, records));
    const Outcome outcome = report({ QStringLiteral("--from"), records });
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("it was not in a file")));
    EXPECT_EQ(count("<td data-label=\"keeps\">"), 1);
}

TEST_F(VxroiReportRecords, ofCropsThatWereSkippedSaySo)
{
    const QByteArray path = pictures.toUtf8() + "/a.png";
    EXPECT_EQ(reportOf(R"({"path":")" + path + R"(","status":"ok","crops":[{"shape":"1:1",)"
                  + R"("output":{"path":"out.jpg","status":"skipped"}}]})")
                  .exitCode,
        0);
    EXPECT_EQ(count("The crop was skipped"), 1);
    EXPECT_EQ(count("<td data-label=\"decided by\">skipped<"), 1);
    EXPECT_EQ(count("1:1 skipped: out.jpg"), 1);
    EXPECT_EQ(count("viewBox=\"0 0 300 200\""), 1);
    EXPECT_EQ(count("<rect"), 0);
}

TEST_F(VxroiReportRecords, areRefusedWithTheNumberOfTheLine)
{
    for (const QByteArray& wrong : { QByteArray("no record"), QByteArray("[1]"), QByteArray("{}"),
             QByteArray(R"({"path": "a.png", "status": "fine"})"), QByteArray("\0\xff", 2) }) {
        const Outcome outcome = reportOf(lineWith("photo", "1:1") + wrong + '\n');
        EXPECT_EQ(outcome.exitCode, 65);
        EXPECT_TRUE(
            isOneLineNaming(outcome.err, records + QStringLiteral(", line 2: is not a record: ")))
            << outcome.err.toStdString();
        EXPECT_EQ(folder.names(), QStringList { QStringLiteral("records.jsonl") });
    }
}

TEST_F(VxroiReportRecords, makeNoPageWhenThereAreNone)
{
    const Outcome outcome = reportOf("\n");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("nothing to do")));
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("records.jsonl") });
}

TEST_F(VxroiReportRecords, cannotBeMixedWithPicturesOrWithWhatIsAnalysed)
{
    crop();
    const QStringList from { QStringLiteral("--from"), records };
    for (const char* const more : { "%1", "--ratio=2:1", "--weight=gauss=1", "--methods" }) {
        const Outcome outcome = report(from
            + QStringList { QString::fromLatin1(more).replace(QStringLiteral("%1"), pictures) });
        EXPECT_EQ(outcome.exitCode, 64) << more;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("--from")));
    }
    EXPECT_EQ(report({}).exitCode, 64);
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("records.jsonl") });
}

TEST_F(VxroiReportRecords, areNeverReplacedByThePageNorAreTheirPictures)
{
    crop();
    const QString before = contentOf(records);
    const auto write = [this](const QString& path) {
        return runVxroi(
            { QStringLiteral("report"), QStringLiteral("--from"), records, QStringLiteral("-o"),
                path, QStringLiteral("--if-exists"), QStringLiteral("overwrite") });
    };
    const Outcome outcome = write(records);
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("is the file of records itself")));
    EXPECT_EQ(write(pictures + QStringLiteral("/b.png")).exitCode, 73);
    EXPECT_EQ(contentOf(records), before);
}

TEST_F(VxroiReportRecords, mustBeInAFileThatCanBeRead)
{
    const Outcome outcome = report({ QStringLiteral("--from"), records });
    EXPECT_EQ(outcome.exitCode, 66);
    EXPECT_TRUE(isOneLineNaming(outcome.err, records));
    const Outcome ofFolder = report({ QStringLiteral("--from"), pictures });
    EXPECT_EQ(ofFolder.exitCode, 65);
    EXPECT_TRUE(isOneLineNaming(ofFolder.err, pictures));
}
