#include "BatchFolder.h"

#include <QJsonArray>

namespace {

// Two pictures without salience, so that only faces move their crops: 300 x 100 pixels. A detector that says of each
// picture that it has a face at its right.
class VxroiFaces : public BatchFolder {
protected:
    const QString withDetector = QStringLiteral("--detector 'sh detector'");

    void SetUp() override
    {
        QImage grey(300, 100, QImage::Format_RGB32);
        grey.fill(Qt::gray);
        folder.save(grey, QStringLiteral("a.png"));
        folder.save(grey, QStringLiteral("b.png"));
        folder.save(QByteArray("#!/bin/sh\necho start >> starts\n"
                               "sed -u 's/}$/,\"faces\": [{\"x\": 250, \"y\": 40, \"width\": 20, "
                               "\"height\": 20, \"score\": 0.75}]}/'\n"),
            QStringLiteral("detector"));
    }

    QJsonObject recordOf(const QString& options, const char* picture = "a.png") const
    {
        const Outcome outcome = shell(QStringLiteral("\"$VXROI\" crop %1 --ratio 1:1 --json %2")
                                          .arg(QLatin1String(picture), options));
        return QJsonDocument::fromJson(outcome.out).object();
    }

    static QJsonObject cropOf(const QJsonObject& record)
    {
        return record.value(QStringLiteral("crops")).toArray().at(0).toObject();
    }

    static int leftOf(const QJsonObject& record)
    {
        return cropOf(record)
            .value(QStringLiteral("oriented"))
            .toObject()[QStringLiteral("x")]
            .toInt();
    }

    static QJsonArray facesOf(const QJsonObject& record)
    {
        return record.value(QStringLiteral("faces")).toArray();
    }

    static QString warningOf(const QJsonObject& record)
    {
        return record.value(QStringLiteral("warnings")).toArray().at(0).toString();
    }

    int startsOfTheDetector() const { return contentOf(QStringLiteral("starts")).count('\n'); }
};

} // namespace

TEST_F(VxroiFaces, areKeptWholeAndListed)
{
    const QJsonObject without = recordOf(QString());
    EXPECT_EQ(leftOf(without), 100) << "the centre";
    EXPECT_FALSE(without.contains(QStringLiteral("faces")));
    const QJsonObject with = recordOf(withDetector);
    EXPECT_GE(leftOf(with), 170);
    EXPECT_EQ(cropOf(with).value(QStringLiteral("decidedBy")), QStringLiteral("faces"));
    const QJsonObject face { { QStringLiteral("x"), 250 }, { QStringLiteral("y"), 40 },
        { QStringLiteral("width"), 20 }, { QStringLiteral("height"), 20 },
        { QStringLiteral("score"), 0.75 } };
    EXPECT_EQ(facesOf(with), QJsonArray { face });
}

TEST_F(VxroiFaces, mayComeWithTheListFromAPipe)
{
    folder.save(
        QByteArray(R"({"path": "a.png", "faces": [{"x": 250, "y": 40, "width": 20, "height": 20}]}
{"path": "a.png", "faces": []}
{"path": "a.png", "error": "too dark"}
{"path": "a.png", "faces": 7}
{"path": "a.png", "error": ""}
a.png
)"),
        QStringLiteral("lines"));
    const auto answers = records(batch(QStringLiteral("--ratio 1:1 --from lines")).out);
    ASSERT_EQ(answers.size(), 6);
    EXPECT_GE(leftOf(answers.at(0)), 170);
    EXPECT_EQ(facesOf(answers.at(0)).size(), 1);
    EXPECT_EQ(leftOf(answers.at(1)), 100);
    EXPECT_TRUE(answers.at(1).contains(QStringLiteral("faces"))) << "there are none";
    EXPECT_EQ(warningOf(answers.at(2)), QStringLiteral("its faces are not known: too dark"));
    EXPECT_FALSE(answers.at(2).contains(QStringLiteral("faces")));
    EXPECT_EQ(leftOf(answers.at(2)), 100);
    EXPECT_TRUE(reasonOf(answers.at(3)).startsWith(QStringLiteral("\"faces\" is not an array of")));
    EXPECT_EQ(reasonOf(answers.at(4)), QStringLiteral("\"error\" is not a text"));
    EXPECT_FALSE(answers.at(5).contains(QStringLiteral("faces")));
}

TEST_F(VxroiFaces, ofTheListAreNotLookedForAgain)
{
    folder.save(QByteArray(R"({"path": "a.png", "faces": []})"), QStringLiteral("lines"));
    const auto answers
        = records(batch(QStringLiteral("--ratio 1:1 --from lines ") + withDetector).out);
    EXPECT_EQ(leftOf(answers.at(0)), 100);
    EXPECT_FALSE(folder.names().contains(QStringLiteral("starts")));
}

TEST_F(VxroiFaces, areNotLookedForWhereNothingIsToDo)
{
    folder.save(QByteArray("mine"), QStringLiteral("out.png"));
    recordOf(withDetector + QStringLiteral(" -o out.png --if-exists skip"));
    EXPECT_FALSE(folder.names().contains(QStringLiteral("starts")));
}

TEST_F(VxroiFaces, ofManyPicturesNeedOneDetectorForEachWorker)
{
    QByteArray list;
    for (int i = 0; i < 40; ++i)
        list += i % 2 == 0 ? "a.png\n" : "b.png\n";
    folder.save(list, QStringLiteral("lines"));
    const auto answers
        = records(batch(QStringLiteral("--ratio 1:1 --from lines -j 3 ") + withDetector).out);
    ASSERT_EQ(answers.size(), 40);
    for (const QJsonObject& record : answers)
        EXPECT_EQ(facesOf(record).size(), 1);
    EXPECT_LE(startsOfTheDetector(), 3);
}

TEST_F(VxroiFaces, areAWarningWhenTheDetectorFails)
{
    const Outcome outcome
        = shell(QStringLiteral("\"$VXROI\" crop a.png --ratio 1:1 --detector 'exit 3'"));
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out, "100x100+100+0\n");
    EXPECT_EQ(outcome.err.toStdString(),
        "vxroi: a.png: its faces are not known: the detector ended with exit code 3\n");
    const QJsonObject record = recordOf(QStringLiteral("--detector 'exit 3' -q"));
    EXPECT_FALSE(record.contains(QStringLiteral("faces")));
    EXPECT_TRUE(warningOf(record).startsWith(QStringLiteral("its faces are not known")));
}

TEST_F(VxroiFaces, areAFailureWhenTheDetectorIsRequired)
{
    const Outcome outcome = shell(QStringLiteral(
        "\"$VXROI\" crop a.png --ratio 1:1 -o out.png --detector 'exit 3' --detector-required"));
    EXPECT_EQ(outcome.exitCode, 69);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("a.png: its faces are not known")))
        << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.endsWith("; mend the detector, or leave --detector-required out\n"))
        << outcome.err.toStdString();
    EXPECT_FALSE(folder.names().contains(QStringLiteral("out.png")));

    folder.save(QByteArray(R"({"path": "a.png", "error": "too dark"})"), QStringLiteral("lines"));
    const auto answers = records(
        batch(QStringLiteral("--ratio 1:1 --from lines --detector-required ") + withDetector).out);
    EXPECT_EQ(reasonOf(answers.at(0)), QStringLiteral("its faces are not known: too dark"));
}

TEST_F(VxroiFaces, areLookedForAgainByAResumedBatchOnlyWithAnotherDetector)
{
    folder.save(QByteArray("a.png\nb.png\n"), QStringLiteral("lines"));
    const QString resumed = QStringLiteral("--ratio 1:1 --from lines --resume records ");
    EXPECT_EQ(batch(resumed + withDetector).exitCode, 0);
    const QByteArray first = contentOf(QStringLiteral("records"));
    const int starts = startsOfTheDetector();
    EXPECT_EQ(batch(resumed + withDetector).exitCode, 0);
    EXPECT_EQ(contentOf(QStringLiteral("records")), first);
    EXPECT_EQ(startsOfTheDetector(), starts);
    EXPECT_EQ(batch(resumed).exitCode, 0);
    EXPECT_FALSE(contentOf(QStringLiteral("records")).contains("\"faces\""));
    // A detector that was missing is tried again.
    EXPECT_EQ(
        batch(resumed + QStringLiteral("--detector 'sh later' --detector-required")).exitCode, 1);
    shell(QStringLiteral("cp detector later"));
    EXPECT_EQ(
        batch(resumed + QStringLiteral("--detector 'sh later' --detector-required")).exitCode, 0);
}

TEST_F(VxroiFaces, areMarkedInTheOverlayAndMoveItsCrop)
{
    const auto overlay = [&](const QString& options) {
        const Outcome outcome
            = shell(QStringLiteral(
                        "\"$VXROI\" map a.png --overlay o.png --ratio 1:1 --if-exists overwrite ")
                + options);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
        return QImage(folder.path(QStringLiteral("o.png")));
    };
    const QImage without = overlay(QString());
    const QImage with = overlay(withDetector);
    EXPECT_EQ(with.pixel(251, 40), QColor(Qt::green).rgb());
    EXPECT_NE(without.pixel(251, 40), QColor(Qt::green).rgb());
    EXPECT_EQ(without.pixel(100, 50), qRgb(255, 255, 255)) << "the crop's left side";
    EXPECT_NE(with.pixel(100, 50), qRgb(255, 255, 255));
    const Outcome failing = shell(QStringLiteral(
        "\"$VXROI\" map a.png --overlay o.png --if-exists overwrite --detector 'exit 3'"));
    EXPECT_EQ(failing.exitCode, 0);
    EXPECT_EQ(failing.err.toStdString(),
        "vxroi: a.png: its faces are not known: the detector ended with exit code 3\n");
}

TEST_F(VxroiFaces, areDrawnInReportsOfPicturesAndOfRecords)
{
    const QByteArray box = R"(<rect class="face" x="250" y="40" width="20" height="20"/>)";
    EXPECT_EQ(
        shell(QStringLiteral("\"$VXROI\" report a.png -o page.html ") + withDetector).exitCode, 0);
    EXPECT_TRUE(contentOf(QStringLiteral("page.html")).contains(box));
    EXPECT_TRUE(contentOf(QStringLiteral("page.html")).contains("faces: 1"));
    EXPECT_TRUE(contentOf(QStringLiteral("page.html")).contains("white boxes are faces"));
    shell(QStringLiteral("\"$VXROI\" crop a.png --ratio 1:1 --json > records ") + withDetector);
    EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" report --from records -o again.html")).exitCode, 0);
    EXPECT_TRUE(contentOf(QStringLiteral("again.html")).contains(box));
    shell(QStringLiteral("\"$VXROI\" report a.png -o none.html"));
    EXPECT_FALSE(contentOf(QStringLiteral("none.html")).contains("class=\"face\""));
    EXPECT_FALSE(contentOf(QStringLiteral("none.html")).contains("faces: "));
}

TEST_F(VxroiFaces, ofStandardInputAreNotKnown)
{
    const Outcome outcome
        = shell(QStringLiteral("\"$VXROI\" crop - --ratio 1:1 < a.png ") + withDetector);
    EXPECT_EQ(outcome.out, "100x100+100+0\n");
    EXPECT_TRUE(outcome.err.contains("the detector reads files, not standard input"));
}

TEST_F(VxroiFaces, needTheProgramThatFindsThem)
{
    const Outcome missing
        = shell(QStringLiteral("PATH=/nonexistent \"$VXROI\" crop a.png --ratio 1:1 --faces"));
    EXPECT_EQ(missing.exitCode, 69);
    EXPECT_EQ(missing.err.toStdString(),
        "vxroi: vxroi-faces: is not installed; install the package of this name, or name another "
        "--detector\n");
    shell(QStringLiteral("mv detector vxroi-faces && chmod +x vxroi-faces"));
    const Outcome found = shell(
        QStringLiteral("PATH=\"$PWD:$PATH\" \"$VXROI\" crop a.png --ratio 1:1 --json --faces"));
    EXPECT_EQ(facesOf(QJsonDocument::fromJson(found.out).object()).size(), 1);
}

TEST_F(VxroiFaces, refuseOptionsThatContradictEachOther)
{
    const auto complaintOf = [&](const char* arguments) {
        const Outcome outcome = shell(QStringLiteral("\"$VXROI\" ") + QLatin1String(arguments));
        EXPECT_EQ(outcome.exitCode, 64) << arguments;
        return outcome.err.toStdString();
    };
    EXPECT_EQ(complaintOf("crop a.png --ratio 1:1 --faces --detector x"),
        "vxroi: --faces: cannot be combined with --detector; leave one of them out; see vxroi crop "
        "--help\n");
    EXPECT_EQ(complaintOf("crop a.png --ratio 1:1 --detector-required"),
        "vxroi: --detector-required: there is no detector; add --faces or --detector; see vxroi "
        "crop --help\n");
    EXPECT_EQ(complaintOf("crop a.png --ratio 1:1 --detector ''"),
        "vxroi: --detector: names no command; see vxroi crop --help\n");
    EXPECT_EQ(complaintOf("map a.png -o m.png --faces"),
        "vxroi: --faces: needs --overlay; see vxroi map --help\n");
    EXPECT_EQ(complaintOf("report --from x -o y.html --faces"),
        "vxroi: --faces: cannot be combined with --from; leave one of them out, or crop again; see "
        "vxroi report --help\n");
}

TEST_F(VxroiFaces, areLookedForWhileASignalEndsTheBatch)
{
    QByteArray list;
    for (int i = 0; i < 500; ++i)
        list += "a.png\n";
    folder.save(list, QStringLiteral("lines"));
    const Outcome outcome = shell(QStringLiteral(
        "timeout -s INT 5 \"$VXROI\" batch -q --ratio 1:1 --from lines -j 2 --resume records "
        "--detector 'while read -r line; do sleep 0.1; echo \"$line\" | sh detector; done'"));
    EXPECT_EQ(outcome.exitCode, 124) << "the code of timeout";
    const auto answers = records(contentOf(QStringLiteral("records")));
    EXPECT_GT(answers.size(), 0);
    for (const QJsonObject& record : answers)
        EXPECT_EQ(facesOf(record).size(), 1) << "the detector did not get the signal";
}
