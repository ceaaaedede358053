#include "BatchFolder.h"

#include <QImage>
#include <QJsonArray>
#include <QProcess>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

class VxroiBatch : public BatchFolder { };

} // namespace

TEST_F(VxroiBatch, writesARecordForEachPictureOfAFolderInOrder)
{
    const Outcome outcome = batch(QStringLiteral("in --ratio 1:1"));
    EXPECT_EQ(outcome.exitCode, 1) << "one failed";
    const QStringList paths = pathsOf(outcome.out);
    EXPECT_EQ(paths.size(), 10);
    QStringList sorted = paths;
    sorted.sort();
    EXPECT_EQ(paths, sorted);
    EXPECT_EQ(records(outcome.out).at(5).value(QStringLiteral("status")).toString(),
        QStringLiteral("failed"));
    EXPECT_EQ(pathsOf(batch(QStringLiteral("in -r --ratio 1:1")).out).size(), 12);
}

TEST_F(VxroiBatch, writesTheSameBytesForAnyNumberOfJobs)
{
    const QByteArray alone = batch(QStringLiteral("in -r --ratio 1:1,4:5 -j 1")).out;
    EXPECT_FALSE(alone.isEmpty());
    for (const char* const jobs : { "2", "3", "16" })
        EXPECT_EQ(
            batch(QStringLiteral("in -r --ratio 1:1,4:5 -j ") + QLatin1String(jobs)).out, alone);
}

TEST_F(VxroiBatch, agreesWithCroppingOnePicture)
{
    EXPECT_EQ(records(batch(QStringLiteral("in --ratio 2:3")).out).at(3),
        records(shell(QStringLiteral("\"$VXROI\" crop in/p03.png --ratio 2:3 --json")).out).at(0));
}

TEST_F(VxroiBatch, takesAListOfPathsSeparatedByLinesOrNuls)
{
    const QByteArray lines = batch(
        QStringLiteral("--ratio 1:1 --from - <<'.'\nin/p03.png\r\n\nin/none.png\nin/p00.png\n."))
                                 .out;
    EXPECT_EQ(pathsOf(lines),
        (QStringList { QStringLiteral("in/p03.png"), QStringLiteral("in/none.png"),
            QStringLiteral("in/p00.png") }));
    folder.save(samples::picture({ 50, 40 }), QStringLiteral("in/two\nlines.png"));
    const QByteArray nuls
        = shell(QStringLiteral(
                    "find in -name '*two*' -print0 | \"$VXROI\" batch -q -0 --from - --ratio 1:1"))
              .out;
    EXPECT_EQ(pathsOf(nuls), QStringList { QStringLiteral("in/two\nlines.png") });
    EXPECT_EQ(nuls.count('\n'), 1);
}

// The first picture has 60 columns and 90 rows.
TEST_F(VxroiBatch, takesAreasToAvoidAndAMapWithEachInput)
{
    QImage mask(60, 90, QImage::Format_RGB32);
    mask.fill(Qt::black);
    for (int x = 0; x < 60; ++x)
        mask.setPixel(x, 79, qRgb(255, 255, 255));
    folder.save(mask, QStringLiteral("mask.png"));
    folder.save(QByteArray(R"({"path": "in/p00.png", "map": "mask.png"}
{"path": "in/p00.png", "map": "mask.png", "avoid": [[0, 80, 60, 10]]}
{"path": "in/p00.png", "avoid": [0, 80, 60, 10]}
{"path": "in/p00.png", "map": ""})"),
        QStringLiteral("list"));
    const QList<QJsonObject> all = records(batch(QStringLiteral("--from list --ratio 1:1")).out);
    ASSERT_EQ(all.size(), 4);
    const auto topOf = [&all](int record) {
        const QJsonObject crop
            = all.at(record).value(QStringLiteral("crops")).toArray().at(0).toObject();
        return crop.value(QStringLiteral("oriented")).toObject().value(QStringLiteral("y")).toInt();
    };
    const auto settingsOf = [&all](int record) {
        return all.at(record).value(QStringLiteral("settings")).toString();
    };
    EXPECT_EQ(settingsOf(0), QStringLiteral("map=mask.png"));
    EXPECT_EQ(topOf(0), 30);
    EXPECT_EQ(topOf(1), 20);
    EXPECT_TRUE(reasonOf(all.at(2)).contains(QStringLiteral("\"avoid\"")));
    EXPECT_TRUE(reasonOf(all.at(3)).contains(QStringLiteral("\"map\"")));
    EXPECT_EQ(settingsOf(3), QStringLiteral("photo"));
}

TEST_F(VxroiBatch, takesWishesWithEachInput)
{
    folder.save(QByteArray(R"({"path": "in/p00.png", "ratios": ["1:1", "2:1"]}
{"path": "in/p00.png", "focus": [0.5, 1]}
{"path": "in/p00.png", "keep": [[0, 80, 60, 10]], "out": "own-{ratio}.png"}
{"path": "in/p01.png", "colour": "red"}
{"path": "in/p01.png", "ratios": ["wide"]}
{"ratios": []}
{"path": )"),
        QStringLiteral("list"));
    const Outcome outcome = batch(QStringLiteral("--from list --ratio 1:1"));
    EXPECT_EQ(outcome.exitCode, 1);
    const QList<QJsonObject> all = records(outcome.out);
    ASSERT_EQ(all.size(), 7);
    const auto crop = [&all](int record, int index) {
        return all.at(record).value(QStringLiteral("crops")).toArray().at(index).toObject();
    };
    EXPECT_EQ(crop(0, 1).value(QStringLiteral("shape")).toString(), QStringLiteral("2:1"));
    EXPECT_EQ(crop(1, 0).value(QStringLiteral("decidedBy")).toString(), QStringLiteral("focus"));
    EXPECT_EQ(crop(2, 0).value(QStringLiteral("decidedBy")).toString(), QStringLiteral("keep"));
    EXPECT_EQ(QImage(folder.path(QStringLiteral("own-1x1.png"))).size(), QSize(60, 60));
    EXPECT_TRUE(reasonOf(all.at(3)).contains(QStringLiteral("\"colour\" is not known")));
    EXPECT_TRUE(reasonOf(all.at(4)).contains(QStringLiteral("ratio")));
    EXPECT_EQ(pathsOf(outcome.out).at(5), QStringLiteral("(line 6)"));
    EXPECT_TRUE(reasonOf(all.at(6)).startsWith(QStringLiteral("not JSON")));
}

TEST_F(VxroiBatch, refusesNamesThatNoFileHas)
{
    folder.save(QByteArray("in/p00.png") + '\0'
            + QByteArray("x\n{\"path\": \"in/p00.png\", \"out\": \"a\\u0000.png\"}\n"
                         "{\"path\": \"\\ud800.png\"}\n"),
        QStringLiteral("list"));
    const QList<QJsonObject> all = records(batch(QStringLiteral("--from list --ratio 1:1")).out);
    ASSERT_EQ(all.size(), 3);
    for (const QJsonObject& record : all)
        EXPECT_TRUE(reasonOf(record).contains(QStringLiteral("characters that no file name has")));
    EXPECT_FALSE(QFile::exists(folder.path(QStringLiteral("a"))));
}

TEST_F(VxroiBatch, refusesWhatIsNoList)
{
    EXPECT_EQ(batch(QStringLiteral("--from in --ratio 1:1")).exitCode, 65) << "a folder";
    EXPECT_EQ(batch(QStringLiteral("--from /dev/zero --ratio 1:1")).exitCode, 65) << "no end";
}

TEST_F(VxroiBatch, knowsAnOutputByWhateverNameItHas)
{
    shell(QStringLiteral("mkdir out; ln -s out link"));
    folder.save(QByteArray("{\"path\": \"in/p00.png\", \"out\": \"out/x.png\"}\n"
                           "{\"path\": \"in/p01.png\", \"out\": \"link/x.png\"}\n"),
        QStringLiteral("list"));
    const QList<QJsonObject> all = records(batch(QStringLiteral("--from list --ratio 1:1")).out);
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(reasonOf(all.at(1)), QStringLiteral("named for two outputs"));
}

TEST_F(VxroiBatch, cropsPicturesWhoseNamesAreNotUtf8AndShowsTheirBytes)
{
    shell(QStringLiteral("cp in/p00.png \"$(printf 'in/odd\\377.png')\""));
    const QString options = QStringLiteral("in --ratio 1:1 -o 'out/{stem}.png'");
    const Outcome outcome = batch(options);
    EXPECT_EQ(outcome.exitCode, 1) << "one is no picture";
    EXPECT_TRUE(outcome.out.startsWith(R"({"crops":)"));
    EXPECT_TRUE(outcome.out.contains(R"("path":"in/odd\udcff.png")")) << outcome.out.toStdString();
    EXPECT_EQ(shell(QStringLiteral("test -s \"$(printf 'out/odd\\377.png')\"")).exitCode, 0);
    // Such records can be resumed, and their paths can be used in lists.
    EXPECT_EQ(batch(options + QStringLiteral(" --if-exists overwrite --resume r")).exitCode, 1);
    const Outcome resumed = batch(options + QStringLiteral(" --resume r"));
    EXPECT_EQ(resumed.exitCode, 1) << resumed.err.toStdString();
    folder.save(QByteArray(R"({"path": "in/odd\udcff.png"})"), QStringLiteral("list"));
    EXPECT_EQ(batch(QStringLiteral("--from list --ratio 1:1")).exitCode, 0);
    shell(QStringLiteral("rm \"$(printf 'in/odd\\377.png')\" \"$(printf 'out/odd\\377.png')\""));
}

TEST_F(VxroiBatch, leavesItsOutputsOutWhateverTheirFormat)
{
    const QString options = QStringLiteral(
        "in --ratio 1:1 -o '{dir}/{stem}-out.{ext}' --format webp --if-exists overwrite");
    EXPECT_EQ(records(batch(options).out).size(), 10);
    EXPECT_EQ(records(batch(options).out).size(), 10);
}

TEST_F(VxroiBatch, leavesHiddenFilesAndLinksToFoldersOut)
{
    shell(QStringLiteral(
        "cp in/p00.png in/.hidden.png; ln -s ../in in/again; mkdir in/.dir; "
        "cp in/p00.png in/.dir; echo text > in/notes.txt; ln -s p00.png in/link.png"));
    const QStringList paths = pathsOf(batch(QStringLiteral("in -r --ratio 1:1")).out);
    EXPECT_EQ(paths.size(), 13);
    EXPECT_EQ(paths.filter(QStringLiteral("link")), QStringList { QStringLiteral("in/link.png") });
}

TEST_F(VxroiBatch, refusesWrongCommandLines)
{
    EXPECT_EQ(batch(QStringLiteral("--ratio 1:1")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("in --from list --ratio 1:1")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("in")).exitCode, 64) << "no shape";
    EXPECT_EQ(batch(QStringLiteral("in -0 --ratio 1:1")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 -j 0")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("none --ratio 1:1")).exitCode, 66);
    EXPECT_EQ(batch(QStringLiteral("--from none --ratio 1:1")).exitCode, 66);
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 > /dev/full")).exitCode, 74);
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --resume none/records")).exitCode, 73);
}

TEST_F(VxroiBatch, leavesOutWhatItWroteBesideThePictures)
{
    const QString options = QStringLiteral("in --ratio 1:1 -o '{dir}/{stem}-{ratio}.png'");
    const Outcome first = batch(options);
    EXPECT_EQ(pathsOf(first.out).size(), 10);
    const Outcome second = batch(options + QStringLiteral(" --if-exists overwrite"));
    EXPECT_EQ(second.out, first.out);
}

TEST_F(VxroiBatch, finishesWhatIsInHandWhenItIsAskedToEnd)
{
    // The list stays open, so only the signal ends the run.
    const Outcome outcome
        = shell(QStringLiteral("mkfifo list; (echo in/p00.png; echo in/p01.png; sleep 60) > list & "
                               "\"$VXROI\" batch --from list --ratio 1:1 > records & batch=$!; "
                               "until [ \"$(grep -c . records)\" = 2 ]; do sleep 0.1; done; "
                               "kill -TERM $batch; wait $batch; code=$?; "
                               "kill %1; exit $code"));
    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_TRUE(outcome.err.contains("interrupted: 2 pictures have their records"))
        << outcome.err.toStdString();
    EXPECT_EQ(pathsOf(contentOf(QStringLiteral("records"))).size(), 2);
}

TEST_F(VxroiBatch, isDoneWhenThereIsNothingToDo)
{
    shell(QStringLiteral("mkdir empty"));
    for (const char* const inputs :
        { "empty", "--from /dev/null", "--from - < /dev/null", "in --shard 100/1000" }) {
        const Outcome outcome
            = shell(QStringLiteral("\"$VXROI\" batch --ratio 1:1 ") + QLatin1String(inputs));
        EXPECT_EQ(outcome.exitCode, 0) << inputs;
        EXPECT_TRUE(outcome.out.isEmpty()) << inputs;
        EXPECT_TRUE(outcome.err.endsWith(": nothing to do\n")) << outcome.err.toStdString();
        EXPECT_EQ(outcome.err.count('\n'), 1) << inputs;
    }
}

TEST_F(VxroiBatch, namesTheListAndTheLineOfAFailure)
{
    folder.save(QByteArray("in/p00.png\n\nin/none.png\n{\"path\": 3}\n"), QStringLiteral("list"));
    const Outcome outcome = shell(QStringLiteral("\"$VXROI\" batch --from list --ratio 1:1"));
    EXPECT_TRUE(outcome.err.contains("vxroi: list, line 3: in/none.png: no such file; "))
        << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains("vxroi: list, line 4: (line 4): \"path\" is not a text; "));
    EXPECT_TRUE(shell(
        QStringLiteral(
            "printf 'in/p00.png\\0in/none.png\\0' | \"$VXROI\" batch -0 --from - --ratio 1:1"))
                    .err.contains("vxroi: standard input, entry 2: in/none.png: "));
}

TEST_F(VxroiBatch, refusesKeysThatStandInALineTwice)
{
    folder.save(QByteArray(R"({"path": "in/p00.png", "path": "in/p01.png"}
{"path": "in/p00.png", "p\u0061th": "in/p01.png"}
{"path": "in/p00.png", "": 1, "": 2}
{"path": "in/p00.png", "keep": [{"a": 1, "a": 2}]}
{"path": "in/p00.png"} {"path": "in/p01.png"}
{"path": "in/p00.png"})"),
        QStringLiteral("list"));
    const QList<QJsonObject> all = records(batch(QStringLiteral("--from list --ratio 1:1")).out);
    ASSERT_EQ(all.size(), 6);
    EXPECT_EQ(reasonOf(all.at(0)), QStringLiteral("names \"path\" twice"));
    EXPECT_EQ(reasonOf(all.at(1)), QStringLiteral("names \"path\" twice"));
    EXPECT_EQ(reasonOf(all.at(2)), QStringLiteral("names \"\" twice"));
    EXPECT_EQ(reasonOf(all.at(3)), QStringLiteral("names \"a\" twice"));
    EXPECT_TRUE(reasonOf(all.at(4)).startsWith(QStringLiteral("not JSON")));
    EXPECT_EQ(reasonOf(all.at(5)), QString());
}

TEST_F(VxroiBatch, goesOnAfterALineThatIsTooLong)
{
    const Outcome outcome = batch(QStringLiteral("--ratio 1:1 --from - <<.\nin/p00.png\n$(head -c "
                                                 "3000000 /dev/zero | tr '\\0' x)\nin/p01.png\n."));
    const QList<QJsonObject> all = records(outcome.out);
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(reasonOf(all.at(1)), QStringLiteral("has more than 1048576 bytes"));
    EXPECT_EQ(pathsOf(outcome.out).at(1), QStringLiteral("(line 2)"));
    EXPECT_EQ(reasonOf(all.at(2)), QString());
}

TEST_F(VxroiBatch, saysHowItWentUnlessQuiet)
{
    const Outcome outcome = shell(QStringLiteral("\"$VXROI\" batch in --ratio 1:1"));
    const QList<QByteArray> lines = outcome.err.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2) << outcome.err.toStdString();
    EXPECT_TRUE(lines.at(0).startsWith("vxroi: in/p05-broken.png: "));
    EXPECT_TRUE(lines.at(1).startsWith("vxroi: 9 done, 1 failed, in "));
    EXPECT_TRUE(batch(QStringLiteral("in --ratio 1:1")).err.isEmpty());
}

TEST_F(VxroiBatch, showsABarOnATerminal)
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
        GTEST_SKIP() << "this system hands out no terminals";
    const char* const name = ptsname(terminal);
    // Kept open, so that reading from the terminal does not end early.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): open is declared with an ellipsis
    const int other = open(name, O_RDWR | O_NOCTTY);
    if (other < 0)
        GTEST_SKIP() << "this system hands out no terminals";

    shell(QStringLiteral("for i in $(seq 400); do echo in/p00.png; done > list"));
    QProcess process;
    process.setWorkingDirectory(folder.path(QString()));
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QString::fromUtf8(name));
    process.start(QStringLiteral(VXROI_PROGRAM),
        QStringLiteral("batch --from list --ratio 1:1 -j 1").split(QLatin1Char(' ')));
    QByteArray shown;
    for (bool hasEnded = false; !hasEnded;) {
        hasEnded = process.waitForFinished(20);
        std::array<char, 4096> part {};
        for (ssize_t count = 1; count > 0;) {
            count = read(terminal, part.data(), part.size());
            shown.append(part.data(), std::max(0, static_cast<int>(count)));
        }
    }
    close(other);
    close(terminal);
    EXPECT_TRUE(shown.contains(" a second, ")) << shown.toStdString();
    EXPECT_TRUE(shown.contains("\r\x1b[K"));
    EXPECT_TRUE(shown.contains("vxroi: 400 done, 0 failed"));
}
