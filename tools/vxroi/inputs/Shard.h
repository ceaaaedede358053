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
/// belongs to: Slurm, Grid Engine, AWS Batch, GitLab CI, Cloud Run or LSF. "auto/8" takes only which part it is from there, as
/// indexed jobs of Kubernetes and arrays of PBS do not tell how many they are. No text is the whole list.
/// \throws host::HostError when \a text is anything else, or there are no such variables.
Shard parseShard(const std::string& text);

} // namespace vxroi
