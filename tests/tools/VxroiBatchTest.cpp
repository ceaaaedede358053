#include "Program.h"
#include "SampleFiles.h"
#include "support/Memory.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

class VxroiBatch : public testing::Test {
protected:
    const samples::SampleFolder folder;

    // Twelve small pictures, one of which is none.
    void SetUp() override
    {
        QDir(folder.path(QString())).mkpath(QStringLiteral("in/deeper"));
        for (int i = 0; i < 11; ++i)
            folder.save(samples::picture({ 60 + 7 * i, 90 - 5 * i }), nameOf(i));
        folder.save(QByteArray("no picture"), QStringLiteral("in/p05-broken.png"));
    }

    static QString nameOf(int i)
    {
        const QString where
            = i < 9 ? QStringLiteral("in/p%1.png") : QStringLiteral("in/deeper/p%1.png");
        return where.arg(i, 2, 10, QLatin1Char('0'));
    }

    // Runs a command line in the folder, where "$VXROI" is the program.
    Outcome shell(const QString& command) const
    {
        return runShell(QStringLiteral("cd '%1' && %2").arg(folder.path(QString()), command));
    }

    Outcome batch(const QString& options) const
    {
        return shell(QStringLiteral("\"$VXROI\" batch -q ") + options);
    }

    static QList<QJsonObject> records(const QByteArray& lines)
    {
        QList<QJsonObject> list;
        for (const QByteArray& line : lines.split('\n')) {
            if (!line.isEmpty())
                list.append(QJsonDocument::fromJson(line).object());
        }
        return list;
    }

    static QStringList pathsOf(const QByteArray& lines)
    {
        QStringList paths;
        for (const QJsonObject& record : records(lines))
            paths.append(record.value(QStringLiteral("path")).toString());
        return paths;
    }

    static QString reasonOf(const QJsonObject& record)
    {
        return record.value(QStringLiteral("error"))
            .toObject()
            .value(QStringLiteral("reason"))
            .toString();
    }

    QByteArray contentOf(const QString& name) const
    {
        QFile file(folder.path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
};

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
        EXPECT_TRUE(reasonOf(record).contains(QStringLiteral("characters that no name has")));
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
    // Records can be resumed, and their paths are those of lists.
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

TEST_F(VxroiBatch, refusesWrongCommandLinesAndEmptyLists)
{
    EXPECT_EQ(batch(QStringLiteral("--ratio 1:1")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("in --from list --ratio 1:1")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("in")).exitCode, 64) << "no shape";
    EXPECT_EQ(batch(QStringLiteral("in -0 --ratio 1:1")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 -j 0")).exitCode, 64);
    EXPECT_EQ(batch(QStringLiteral("none --ratio 1:1")).exitCode, 66);
    EXPECT_EQ(batch(QStringLiteral("--from none --ratio 1:1")).exitCode, 66);
    EXPECT_EQ(batch(QStringLiteral("--from /dev/null --ratio 1:1")).exitCode, 66);
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 > /dev/full")).exitCode, 74);
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --resume none/records")).exitCode, 73);
}

TEST_F(VxroiBatch, givesShardsThatAreAWholeTogether)
{
    QSet<QString> together;
    int count = 0;
    for (const char* const shard : { "1/3", "2/3", "3/3" }) {
        const QStringList paths = pathsOf(
            batch(QStringLiteral("in -r --ratio 1:1 --shard ") + QLatin1String(shard)).out);
        count += paths.size();
        together += QSet<QString>(paths.begin(), paths.end());
    }
    EXPECT_EQ(count, 12);
    EXPECT_EQ(together.size(), 12);
    for (const char* const shard : { "0/3", "4/3", "1/0", "1", "x/3", "auto" })
        EXPECT_EQ(
            batch(QStringLiteral("in --ratio 1:1 --shard ") + QLatin1String(shard)).exitCode, 64)
            << shard;
}

TEST_F(VxroiBatch, choosesTheShardOfANameByItsPublishedHash)
{
    // FNV-1a, 64 bits, of "a" is 0xaf63dc4c8601ec8c and of "foobar" 0x85944171f73967e8: modulo 1000
    // that is 988 and 976, and shards count from 1.
    const auto isInShard = [this](const char* name, int shard) {
        return !batch(QStringLiteral("--ratio 1:1 --shard %1/1000 --from - <<'.'\n%2\n.")
                          .arg(shard)
                          .arg(QLatin1String(name)))
                    .out.isEmpty();
    };
    constexpr quint64 hashOfA = 0xaf63dc4c8601ec8c;
    constexpr quint64 hashOfFoobar = 0x85944171f73967e8;
    EXPECT_TRUE(isInShard("a", static_cast<int>(hashOfA % 1000) + 1));
    EXPECT_FALSE(isInShard("a", static_cast<int>(hashOfA % 1000)));
    EXPECT_TRUE(isInShard("foobar", static_cast<int>(hashOfFoobar % 1000) + 1));
}

TEST_F(VxroiBatch, takesItsShardFromTheArrayJob)
{
    const auto shardOf = [this](const char* variables) {
        return shell(QLatin1String(variables)
            + QStringLiteral(" \"$VXROI\" batch -q in -r --ratio 1:1 --shard auto"));
    };
    const char* const everySecondFrom4 = "SLURM_ARRAY_TASK_ID=6 SLURM_ARRAY_TASK_MIN=4 "
                                         "SLURM_ARRAY_TASK_STEP=2 SLURM_ARRAY_TASK_COUNT=3";
    const QByteArray second = batch(QStringLiteral("in -r --ratio 1:1 --shard 2/3")).out;
    EXPECT_FALSE(second.isEmpty());
    for (const char* const variables :
        { "SLURM_ARRAY_TASK_ID=1 SLURM_ARRAY_TASK_MIN=0 SLURM_ARRAY_TASK_COUNT=3", everySecondFrom4,
            "SGE_TASK_ID=2 SGE_TASK_FIRST=1 SGE_TASK_LAST=3 SGE_TASK_STEPSIZE=1",
            "AWS_BATCH_JOB_ARRAY_INDEX=1 AWS_BATCH_JOB_ARRAY_SIZE=3",
            "SGE_TASK_ID=undefined CI_NODE_INDEX=2 CI_NODE_TOTAL=3" })
        EXPECT_EQ(shardOf(variables).out, second) << variables;
    EXPECT_EQ(shardOf("CI_NODE_INDEX=4 CI_NODE_TOTAL=3").exitCode, 64);
}

TEST_F(VxroiBatch, leavesOutWhatItWroteBesideThePictures)
{
    const QString options = QStringLiteral("in --ratio 1:1 -o '{dir}/{stem}-{ratio}.png'");
    const Outcome first = batch(options);
    EXPECT_EQ(pathsOf(first.out).size(), 10);
    const Outcome second = batch(options + QStringLiteral(" --if-exists overwrite"));
    EXPECT_EQ(second.out, first.out);
}

TEST_F(VxroiBatch, resumesBehindTheRecordsOfAnEarlierRun)
{
    const QString options
        = QStringLiteral("in -r --ratio 1:1 -o 'out/{stem}.png' --resume records");
    EXPECT_EQ(batch(options).exitCode, 1);
    const QByteArray whole = contentOf(QStringLiteral("records"));
    EXPECT_EQ(pathsOf(whole).size(), 12);
    for (const int kept : { 0, 1, 17, whole.size() / 2, whole.size() - 1, whole.size() }) {
        folder.save(whole.left(kept), QStringLiteral("records"));
        EXPECT_EQ(batch(options).exitCode, 1) << kept;
        EXPECT_EQ(contentOf(QStringLiteral("records")), whole) << kept;
    }
}

TEST_F(VxroiBatch, resumesWithoutTouchingAFileThatIsNotItsOwn)
{
    folder.save(QByteArray("mine"), QStringLiteral("p02.png"));
    const QString options = QStringLiteral("in --ratio 1:1 -o '{stem}.png' --resume records");
    EXPECT_EQ(batch(options).exitCode, 1);
    EXPECT_EQ(contentOf(QStringLiteral("p02.png")), QByteArray("mine"));
    const QByteArray whole = contentOf(QStringLiteral("records"));
    EXPECT_EQ(reasonOf(records(whole).at(2)), QStringLiteral("already exists"));
    const QByteArray uninterrupted
        = batch(QStringLiteral("in --ratio 1:1 -o '{stem}.png' --if-exists skip")).out;
    EXPECT_TRUE(uninterrupted.contains("\"status\":\"skipped\""));
}

TEST_F(VxroiBatch, refusesToResumeRecordsOfOtherPicturesAndForeignFiles)
{
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --resume records")).exitCode, 1);
    const QByteArray whole = contentOf(QStringLiteral("records"));
    EXPECT_EQ(batch(QStringLiteral("in/deeper --ratio 1:1 --resume records")).exitCode, 64);
    EXPECT_EQ(contentOf(QStringLiteral("records")), whole);
    for (const char* const content :
        { "a diary", "a diary\n", R"({"a": 1})", "{}\n", R"({"error":{"message":"mine"}})" }) {
        folder.save(QByteArray(content), QStringLiteral("mine"));
        EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --resume mine")).exitCode, 64) << content;
        EXPECT_EQ(contentOf(QStringLiteral("mine")), QByteArray(content));
    }
}

TEST_F(VxroiBatch, finishesWhatIsInHandWhenItIsAskedToEnd)
{
    // The list never ends by itself: only the signal does.
    const Outcome outcome
        = shell(QStringLiteral("mkfifo list; (echo in/p00.png; echo in/p01.png; sleep 60) > list & "
                               "\"$VXROI\" batch --from list --ratio 1:1 > records & batch=$!; "
                               "sleep 2; kill -TERM $batch; wait $batch; code=$?; "
                               "kill %1; exit $code"));
    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_TRUE(outcome.err.contains("interrupted: 2 pictures have their records"))
        << outcome.err.toStdString();
    EXPECT_EQ(pathsOf(contentOf(QStringLiteral("records"))).size(), 2);
}

TEST_F(VxroiBatch, saysHowItWentUnlessQuiet)
{
    const Outcome outcome = shell(QStringLiteral("\"$VXROI\" batch in --ratio 1:1"));
    const QList<QByteArray> lines = outcome.err.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2) << outcome.err.toStdString();
    EXPECT_TRUE(lines.at(0).startsWith("vxroi: in/p05-broken.png: "));
    EXPECT_TRUE(lines.at(1).startsWith("vxroi: 10 done, 1 failed, in "));
    EXPECT_TRUE(batch(QStringLiteral("in --ratio 1:1")).err.isEmpty());
}

TEST_F(VxroiBatch, showsABarOnATerminal)
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
        GTEST_SKIP() << "this system hands out no terminals";
    const char* const name = ptsname(terminal);
    // Held open, so that reading does not end early.
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

TEST_F(VxroiBatch, completesAfterBeingKilledFiftyTimes)
{
    const QString arguments
        = QStringLiteral("batch -q in -r --ratio 1:1,2:3 -o 'out/{stem}-{ratio}.png' -j 2 ");
    shell(QStringLiteral("for i in $(seq 30); do cp in/p00.png in/q$i.png; done"));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" %1 > expected").arg(arguments)).exitCode, 1);
    const double secondsInAll = static_cast<double>(timer.elapsed()) / 1000;
    shell(QStringLiteral("mv out expected-out"));
    const QByteArray expected = contentOf(QStringLiteral("expected"));
    EXPECT_EQ(pathsOf(expected).size(), 42);

    const QDir out(folder.path(QStringLiteral("out")));
    const QString resume = arguments + QStringLiteral("--resume records");
    int killedHalfway = 0;
    for (int series = 0; series < 10; ++series) {
        for (int kill = 0; kill < 5; ++kill) {
            const double seconds = secondsInAll * (10 + (series * 7 + kill * 11) % 50) / 100;
            shell(QStringLiteral("timeout -s KILL %1 \"$VXROI\" %2").arg(seconds).arg(resume));
            for (const QString& name : out.entryList(QDir::Files | QDir::Hidden))
                EXPECT_FALSE(QImage(out.filePath(name)).isNull()) << name.toStdString();
            const int done = QFile::exists(folder.path(QStringLiteral("records")))
                ? contentOf(QStringLiteral("records")).count('\n')
                : 0;
            killedHalfway += done > 0 && done < 42 ? 1 : 0;
        }
        EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" ") + resume).exitCode, 1) << "one failed";
        EXPECT_EQ(contentOf(QStringLiteral("records")), expected);
        EXPECT_EQ(
            shell(QStringLiteral("diff -r out expected-out && rm -r out records")).exitCode, 0);
    }
    EXPECT_GT(killedHalfway, 0);
}

TEST_F(VxroiBatch, holdsNoMoreMemoryAfterTwoThousandPicturesThanAfterTwoHundred)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer keeps what is freed";
    QProcess process;
    process.setWorkingDirectory(folder.path(QString()));
    process.start(QStringLiteral(VXROI_PROGRAM),
        { QStringLiteral("batch"), QStringLiteral("-q"), QStringLiteral("--from"),
            QStringLiteral("-"), QStringLiteral("--ratio"), QStringLiteral("1:1") });
    ASSERT_TRUE(process.waitForStarted());
    for (int i = 0; i < 2000; ++i)
        process.write(i % 100 == 7 ? "in/p05-broken.png\n" : nameOf(i % 9).toUtf8() + '\n');
    int recordCount = 0;
    const auto residentAfter = [&process, &recordCount](int count) {
        while (recordCount < count && process.waitForReadyRead(-1))
            recordCount += process.readAllStandardOutput().count('\n');
        QFile status(QStringLiteral("/proc/%1/statm").arg(process.processId()));
        EXPECT_TRUE(status.open(QIODevice::ReadOnly));
        return status.readAll().split(' ').value(1).toInt(); // in pages
    };
    const int early = residentAfter(200);
    // The last ones are not written before the list has ended.
    const int late = residentAfter(1900);
    EXPECT_GT(early, 0);
    EXPECT_LE(late, early * 1.1);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    EXPECT_EQ(recordCount + process.readAllStandardOutput().count('\n'), 2000);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().isEmpty());
}
