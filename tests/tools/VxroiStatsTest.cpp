#include "BatchFolder.h"

#include <QJsonArray>

namespace {

class VxroiStats : public BatchFolder {
protected:
    Outcome stats(const char* options) const
    {
        return shell(QStringLiteral("\"$VXROI\" stats ") + QLatin1String(options));
    }
};

} // namespace

TEST_F(VxroiStats, countsWhatRecordsSay)
{
    batch(QStringLiteral("in -r --ratio 1:1,60:90 -o 'out/{stem}-{ratio}.png' > a"));
    folder.save(
        QByteArray("in/none.png\nin/none2.png\n{\"path\": \"in/p01.png\", \"focus\": [0, 0]}\n"),
        QStringLiteral("list"));
    batch(QStringLiteral("--from list --ratio 1:1 --map in/p00.png > b"));
    const Outcome outcome = stats("a b --json");
    EXPECT_EQ(outcome.exitCode, 0);
    const QJsonObject counts = QJsonDocument::fromJson(outcome.out).object();
    // Twelve files and three lines; one file is not a picture, and two are missing.
    EXPECT_EQ(counts.value(QStringLiteral("pictures")).toInt(), 15);
    EXPECT_EQ(counts.value(QStringLiteral("ok")).toInt(), 12);
    EXPECT_EQ(counts.value(QStringLiteral("failed")).toInt(), 3);
    const QJsonArray failures = counts.value(QStringLiteral("failures")).toArray();
    ASSERT_EQ(failures.size(), 2);
    EXPECT_EQ(failures.at(0).toObject().value(QStringLiteral("code")).toInt(), 65);
    EXPECT_EQ(failures.at(1).toObject().value(QStringLiteral("code")).toInt(), 66);
    EXPECT_EQ(failures.at(1).toObject().value(QStringLiteral("pictures")).toInt(), 2);
    EXPECT_EQ(counts.value(QStringLiteral("crops")).toInt(), 2 * 11 + 1);
    EXPECT_EQ(
        counts.value(QStringLiteral("outputs")).toObject().value(QStringLiteral("written")).toInt(),
        22);
    EXPECT_EQ(
        counts.value(QStringLiteral("decidedBy")).toObject().value(QStringLiteral("focus")).toInt(),
        1);
    const QJsonObject settings = counts.value(QStringLiteral("settings")).toObject();
    EXPECT_EQ(settings.value(QStringLiteral("photo")).toInt(), 12);
    EXPECT_EQ(settings.value(QStringLiteral("map")).toInt(), 3);
    const QByteArray table = stats("a b").out;
    EXPECT_TRUE(table.startsWith("pictures       15\nok             12\nfailed         3\n"))
        << table.toStdString();
    EXPECT_EQ(shell(QStringLiteral("cat a b | \"$VXROI\" stats -")).out, table);
}

TEST_F(VxroiStats, saysHowManyPicturesASecondABatchDid)
{
    folder.save(QByteArray(R"({"at":1,"path":"a","seconds":0.5}
{"at":2,"path":"b","seconds":1}
{"at":2.5,"path":"c","seconds":0.25}
{"at":4,"path":"d","seconds":2}
)"),
        QStringLiteral("one"));
    folder.save(
        QByteArray("{\"at\":2,\"path\":\"e\",\"seconds\":0.75}\n"), QStringLiteral("other"));
    shell(QStringLiteral(": > none"));
    const QJsonObject timings
        = QJsonDocument::fromJson(stats("none --timings one --timings other --json").out)
              .object()
              .value(QStringLiteral("timings"))
              .toObject();
    // Four pictures in four seconds, and one in two seconds.
    EXPECT_EQ(timings.value(QStringLiteral("picturesPerSecond")).toDouble(), 1.5);
    EXPECT_EQ(timings.value(QStringLiteral("pictures")).toInt(), 5);
    EXPECT_EQ(timings.value(QStringLiteral("medianSeconds")).toDouble(), 0.75);
    EXPECT_EQ(timings.value(QStringLiteral("seconds95")).toDouble(), 2);
    EXPECT_EQ(timings.value(QStringLiteral("longest")).toString(), QStringLiteral("d"));
}

TEST_F(VxroiStats, readsTheTimingsOfABatchAndLeavesRecordsAlone)
{
    const QByteArray records = batch(QStringLiteral("in --ratio 1:1 --timings timings")).out;
    EXPECT_EQ(records, batch(QStringLiteral("in --ratio 1:1")).out);
    EXPECT_EQ(pathsOf(contentOf(QStringLiteral("timings"))), pathsOf(records));
    folder.save(records, QStringLiteral("records"));
    EXPECT_TRUE(stats("records --timings timings").out.contains("timed          10\n"));
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --timings none/timings")).exitCode, 73);
}

TEST_F(VxroiStats, refusesWhatIsNoRecordAndNoTiming)
{
    folder.save(QByteArray("in/p00.png\n"), QStringLiteral("list"));
    EXPECT_EQ(stats("list").exitCode, 65);
    EXPECT_TRUE(
        isOneLineNaming(stats("list").err, QStringLiteral("list, line 1: is not a record")));
    EXPECT_TRUE(isOneLineNaming(
        stats("/dev/null --timings list").err, QStringLiteral("list, line 1: is not a timing")));
    EXPECT_EQ(stats("none").exitCode, 66);
    EXPECT_EQ(stats("").exitCode, 64);
}
