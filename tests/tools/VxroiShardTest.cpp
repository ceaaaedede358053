#include "BatchFolder.h"

#include <QSet>

namespace {

class VxroiShard : public BatchFolder { };

} // namespace

TEST_F(VxroiShard, givesShardsThatAreAWholeTogether)
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

TEST_F(VxroiShard, choosesTheShardOfANameByItsPublishedHash)
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

TEST_F(VxroiShard, takesItsShardFromTheArrayJob)
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
            "SGE_TASK_ID=undefined CI_NODE_INDEX=2 CI_NODE_TOTAL=3",
            "CLOUD_RUN_TASK_INDEX=1 CLOUD_RUN_TASK_COUNT=3",
            "LSB_JOBINDEX=3 LSB_JOBINDEX_END=5 LSB_JOBINDEX_STEP=2",
            "LSB_JOBINDEX=0 CI_NODE_INDEX=2 CI_NODE_TOTAL=3" })
        EXPECT_EQ(shardOf(variables).out, second) << variables;
    EXPECT_EQ(shardOf("CI_NODE_INDEX=08 CI_NODE_TOTAL=08").out,
        batch(QStringLiteral("in -r --ratio 1:1 --shard 8/8")).out)
        << "numbers are decimal";
    EXPECT_EQ(shardOf("CI_NODE_INDEX=4 CI_NODE_TOTAL=3").exitCode, 64);
}

TEST_F(VxroiShard, takesTheCountFromTheCommandLineWhereTheSchedulerHasNone)
{
    const auto shardOf = [this](const char* variables, const char* shard) {
        return shell(QStringLiteral("%1 \"$VXROI\" batch in -r --ratio 1:1 --shard %2")
                         .arg(QLatin1String(variables), QLatin1String(shard)));
    };
    const QByteArray second = batch(QStringLiteral("in -r --ratio 1:1 --shard 2/3")).out;
    EXPECT_EQ(shardOf("JOB_COMPLETION_INDEX=1", "auto/3").out, second);
    EXPECT_EQ(shardOf("PBS_ARRAY_INDEX=1", "auto/3").out, second);
    EXPECT_EQ(shardOf("PBS_ARRAY_INDEX=4", "auto/3").out, second) << "numbers may begin anywhere";
    EXPECT_EQ(shardOf("SLURM_ARRAY_TASK_ID=7", "auto/3").out, second);
    const Outcome unknown = shardOf("JOB_COMPLETION_INDEX=1", "auto");
    EXPECT_EQ(unknown.exitCode, 64);
    EXPECT_TRUE(unknown.err.contains("JOB_COMPLETION_INDEX does not say how many jobs there are"));
    for (const char* const shard : { "auto/0", "auto/", "auto/x" })
        EXPECT_EQ(shardOf("JOB_COMPLETION_INDEX=1", shard).exitCode, 64) << shard;
    EXPECT_EQ(shardOf("", "auto/3").exitCode, 64) << "no array job";
}
