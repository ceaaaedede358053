#pragma once

#include "MergeCommand.h"
#include "MergeParts.h"
#include "vxroi/inputs/Tasks.h"

#include "host/files/OutputFile.h"

#include <QJsonObject>
#include <QMap>

#include <functional>
#include <optional>
#include <unordered_set>

namespace vxroi {

/// One run of `vxroi merge`. Records are read from their files when they are copied, so that they need no memory.
class Merge {
public:
    /// \throws host::HostError when a file cannot be read or created.
    explicit Merge(const MergeArguments& arguments);

    /// \throws host::HostError as runMerge().
    host::ExitCode run();

private:
    void forEachInput(const std::function<void(const Input&)>& visit) const;
    void add(const Input& input);
    void requireSameRun(const FoundRecord& found);
    void addToRerunList(const Input& input);
    void noteOutputs(const QJsonObject& record);
    void say(const QString& text) const;
    QString summary() const;

    const MergeArguments& arguments;
    MergeParts parts;
    host::OutputFile merged;
    std::optional<host::OutputFile> again;
    QJsonObject first; ///< the first record, whose version and request all others must have
    QMap<int, qint64> failures; ///< their number by exit code
    qint64 okCount = 0;
    qint64 missingCount = 0;
    qint64 duplicateCount = 0;
    qint64 damagedBytes = 0;
    std::unordered_set<std::size_t> outputs; ///< hashes of all outputs
    qint64 clashCount = 0; ///< outputs that belong to two pictures
};

} // namespace vxroi
