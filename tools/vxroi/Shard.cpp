#include "Shard.h"

#include "host/FileName.h"
#include "host/HostError.h"

#include <QRegularExpression>

#include <array>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// The variables in which a job scheduler tells a process which of an array of jobs it is. The first
// job has the number of the variable firstIndex, or firstIndexIfUnset; numbers rise by step.
struct ArrayJob {
    const char* index;
    const char* firstIndex;
    int firstIndexIfUnset;
    const char* step;
    const char* count;
    const char* lastIndex; ///< where the scheduler tells no count
};

constexpr std::array<ArrayJob, 4> arrayJobs { {
    { "SLURM_ARRAY_TASK_ID", "SLURM_ARRAY_TASK_MIN", 0, "SLURM_ARRAY_TASK_STEP",
        "SLURM_ARRAY_TASK_COUNT", nullptr },
    { "SGE_TASK_ID", "SGE_TASK_FIRST", 1, "SGE_TASK_STEPSIZE", nullptr, "SGE_TASK_LAST" },
    { "AWS_BATCH_JOB_ARRAY_INDEX", nullptr, 0, nullptr, "AWS_BATCH_JOB_ARRAY_SIZE", nullptr },
    { "CI_NODE_INDEX", nullptr, 1, nullptr, "CI_NODE_TOTAL", nullptr },
} };

int valueOf(const char* variable, int valueIfUnset)
{
    bool isNumber = false;
    const int value = variable != nullptr ? qEnvironmentVariableIntValue(variable, &isNumber) : 0;
    return isNumber ? value : valueIfUnset;
}

[[noreturn]] void throwNoShard(const QString& text, const QString& reason)
{
    throw HostError(ExitCode::Usage, QStringLiteral("--shard %1").arg(text), reason,
        QStringLiteral("write a part such as 2/8, or auto within an array job"));
}

Shard shardOf(const ArrayJob& job)
{
    const qint64 first = valueOf(job.firstIndex, job.firstIndexIfUnset);
    const qint64 step = valueOf(job.step, 1);
    const qint64 index = valueOf(job.index, 0);
    if (step < 1)
        return { 0, 0 };
    const qint64 count = job.count != nullptr ? valueOf(job.count, 0)
                                              : (valueOf(job.lastIndex, 0) - first) / step + 1;
    return { static_cast<int>((index - first) / step + 1), static_cast<int>(count) };
}

Shard shardOfArrayJob()
{
    for (const ArrayJob& job : arrayJobs) {
        bool isNumber = false; // outside an array Grid Engine says "undefined"
        qEnvironmentVariableIntValue(job.index, &isNumber);
        if (isNumber)
            return shardOf(job);
    }
    throwNoShard(QStringLiteral("auto"), QStringLiteral("this is no array job"));
}

Shard shardFromNumbers(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral(R"(\A([0-9]{1,6})/([0-9]{1,6})\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    return { match.captured(1).toInt(), match.captured(2).toInt() };
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
    const Shard shard = text == "auto" ? shardOfArrayJob() : shardFromNumbers(given);
    if (shard.index < 1 || shard.index > shard.count)
        throwNoShard(given, QStringLiteral("not a part of a whole"));
    return shard;
}

} // namespace vxroi
