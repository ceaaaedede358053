#include "Shard.h"

#include "host/FileName.h"
#include "host/HostError.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// The environment variables in which a job scheduler passes a process its index in an array of jobs. Indices begin at
// the value of firstIndex, or at firstIndexIfUnset, and increase by step.
struct ArrayJob {
    const char* index;
    const char* firstIndex;
    int firstIndexIfUnset;
    const char* step;
    const char* count;
    const char* lastIndex; ///< used without count; without either, the number of jobs is unknown
};

constexpr std::array<ArrayJob, 8> arrayJobs { {
    { "SLURM_ARRAY_TASK_ID", "SLURM_ARRAY_TASK_MIN", 0, "SLURM_ARRAY_TASK_STEP",
        "SLURM_ARRAY_TASK_COUNT", nullptr },
    { "SGE_TASK_ID", "SGE_TASK_FIRST", 1, "SGE_TASK_STEPSIZE", nullptr, "SGE_TASK_LAST" },
    { "AWS_BATCH_JOB_ARRAY_INDEX", nullptr, 0, nullptr, "AWS_BATCH_JOB_ARRAY_SIZE", nullptr },
    { "CI_NODE_INDEX", nullptr, 1, nullptr, "CI_NODE_TOTAL", nullptr },
    { "CLOUD_RUN_TASK_INDEX", nullptr, 0, nullptr, "CLOUD_RUN_TASK_COUNT", nullptr },
    { "LSB_JOBINDEX", nullptr, 1, "LSB_JOBINDEX_STEP", nullptr, "LSB_JOBINDEX_END" },
    { "JOB_COMPLETION_INDEX", nullptr, 0, nullptr, nullptr, nullptr },
    { "PBS_ARRAY_INDEX", nullptr, 0, nullptr, nullptr, nullptr },
} };

constexpr int noNumber = -1;

int valueOf(const char* variable, int valueIfUnset)
{
    bool isNumber = false;
    const int value = variable != nullptr ? qgetenv(variable).toInt(&isNumber) : 0;
    return isNumber ? value : valueIfUnset;
}

// Whether the process belongs to an array of this scheduler. Outside of an array, Grid Engine sets the index to
// "undefined", and LSF to 0.
bool isActive(const ArrayJob& job)
{
    const int index = valueOf(job.index, noNumber);
    return index >= 0 && (index > 0 || job.firstIndexIfUnset == 0 || job.firstIndex != nullptr);
}

[[noreturn]] void throwNoShard(const QString& text, const QString& reason)
{
    throw HostError(ExitCode::Usage, QStringLiteral("--shard %1").arg(text), reason,
        QStringLiteral("write a part such as 2/8, or auto or auto/8 within an array job"));
}

ArrayJob arrayJob(const QString& text)
{
    const auto* const job = std::find_if(arrayJobs.begin(), arrayJobs.end(), isActive);
    if (job == arrayJobs.end())
        throwNoShard(text, QStringLiteral("not in an array job"));
    return *job;
}

Shard shardOfArrayJob(const QString& text)
{
    const ArrayJob job = arrayJob(text);
    if (job.count == nullptr && job.lastIndex == nullptr)
        throwNoShard(text,
            QStringLiteral("%1 does not say how many jobs there are")
                .arg(QLatin1String(job.index)));
    const qint64 first = valueOf(job.firstIndex, job.firstIndexIfUnset);
    const qint64 step = valueOf(job.step, 1);
    const qint64 index = valueOf(job.index, 0);
    if (step < 1)
        return { 0, 0 };
    const qint64 count = job.count != nullptr ? valueOf(job.count, 0)
                                              : (valueOf(job.lastIndex, 0) - first) / step + 1;
    return { static_cast<int>((index - first) / step + 1), static_cast<int>(count) };
}

// The shard of a job in an array of \a count jobs. Consecutive indices give different shards, wherever they begin.
Shard shardOfArrayJobOf(int count, const QString& text)
{
    const int index = valueOf(arrayJob(text).index, 0);
    return count > 0 ? Shard { index % count + 1, count } : Shard { 0, 0 };
}

Shard shardFrom(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(\A([0-9]{1,6}|auto)/([0-9]{1,6})\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (text == QLatin1String("auto"))
        return shardOfArrayJob(text);
    const int count = match.captured(2).toInt();
    return match.captured(1) == QLatin1String("auto") ? shardOfArrayJobOf(count, text)
                                                      : Shard { match.captured(1).toInt(), count };
}

quint64 fnv1a(const QByteArray& bytes)
{
    constexpr quint64 offsetBasis = 0xcbf29ce484222325;
    constexpr quint64 prime = 0x100000001b3;
    quint64 hash = offsetBasis;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<uchar>(byte)) * prime;
    return hash;
}

} // namespace

bool Shard::contains(const QString& name) const
{
    return static_cast<int>(fnv1a(host::bytesOfName(name)) % static_cast<quint64>(count))
        == index - 1;
}

Shard parseShard(const std::string& text)
{
    if (text.empty())
        return {};
    const QString given = QString::fromStdString(text);
    const Shard shard = shardFrom(given);
    if (shard.index < 1 || shard.index > shard.count)
        throwNoShard(given, QStringLiteral("not a part of the whole"));
    return shard;
}

} // namespace vxroi
