#pragma once

#include <QString>

#include <string>

namespace vxroi {

/// One of several equal parts of a long list, for machines that share the work.
struct Shard {
    int index = 1; ///< from 1
    int count = 1;

    /// Whether the input called \a name belongs to this part. It depends on the name alone, by its
    /// FNV-1a hash, so that it does not matter what else is on the list.
    bool contains(const QString& name) const;
};

/// Reads a part such as "2/8"; "auto" takes it from the variables of the array job that this process
/// belongs to: SLURM, Grid Engine, AWS Batch or GitLab CI. No text is the whole list.
/// \throws host::HostError when \a text is anything else, or there are no such variables.
Shard parseShard(const std::string& text);

} // namespace vxroi
