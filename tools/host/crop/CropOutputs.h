#pragma once

#include "CropTask.h"
#include "host/picture/PictureWriter.h"

#include <deque>

namespace host {

/// Decides which outputs of a task are written, and writes them: all of them or none.
class CropOutputs {
public:
    /// \pre both arguments outlive this object.
    CropOutputs(const CropRules& cropRules, const CropTask& cropTask);

    /// Adds a crop for each shape to \a record, with the path and the expected state of its output.
    /// \throws HostError when an output must not or cannot be written.
    void plan(CropRecord& record) const;

    /// Writes the chosen crops of \a record whose state is Written.
    /// \throws HostError when that fails.
    void write(CropRecord& record, PictureFile& picture) const;

private:
    bool mayReplace(const QString& output) const;
    OutputState planFor(const QString& output) const;
    OutputState planForTakenName(const QString& output) const;
    void commit(std::deque<PictureWriter>& files) const;

    const CropRules& rules;
    const CropTask& task;
};

} // namespace host
