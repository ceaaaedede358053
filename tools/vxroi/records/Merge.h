#pragma once

#include "MergeCommand.h"
#include "RecordIndex.h"
#include "vxroi/inputs/Tasks.h"

#include "host/files/OutputFile.h"

#include <QFile>
#include <QMap>

#include <deque>
#include <functional>
#include <optional>
#include <unordered_set>

namespace vxroi {

/// One run of `vxroi merge`. Records stay in their files until they are copied.
class Merge {
public:
    /// \throws host::HostError when a file cannot be read or created.
    explicit Merge(const MergeArguments& arguments);

    /// \throws host::HostError as runMerge().
    host::ExitCode run();

private:
    struct Part {
        QFile file;
        std::optional<RecordIndex> records;
    };
    struct Found {
        QByteArray line;
        QJsonObject record;
        QString part; ///< the file that it is in
        bool isDouble = false;
    };

    void forEachInput(const std::function<void(const Input&)>& visit) const;
    QVector<Input> recordedInputs() const;
    bool isOutput(const QString& path) const;
    void add(const Input& input);
    std::optional<Found> find(const Input& input) const;
    void requireSameRun(const Found& found);
    void runAgain(const Input& input);
    void noteOutputs(const QJsonObject& record);
    void say(const QString& text) const;
    QString summary() const;

    const MergeArguments& arguments;
    std::deque<Part> parts;
    host::OutputFile merged;
    std::optional<host::OutputFile> again;
    QJsonObject first; ///< the record that all others must go with
    QMap<int, qint64> failures; ///< by their code
    qint64 okCount = 0;
    qint64 missingCount = 0;
    qint64 doubleCount = 0;
    qint64 damagedBytes = 0;
    std::unordered_set<std::size_t> outputs; ///< by hashes of their names
    qint64 clashCount = 0; ///< outputs that two pictures have
};

} // namespace vxroi
