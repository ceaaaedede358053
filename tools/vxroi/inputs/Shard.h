#pragma once

#include <QString>

#include <string>

namespace vxroi {

/// One of several parts of about equal size of a long list, for machines that share the work.
struct Shard {
    int index = 1; ///< from 1
    int count = 1;

    /// Whether the input called \a name belongs to this part. This depends only on the FNV-1a hash of the name, not on
    /// the rest of the list.
    bool contains(const QString& name) const;
};

/// Parses a part such as "2/8". "auto" takes both numbers from the environment of the array job that this process
/// belongs to: Slurm, Grid Engine, AWS Batch, GitLab CI, Cloud Run or LSF. "auto/8" takes only the index from there,
/// because indexed jobs of Kubernetes and arrays of PBS do not pass their number of jobs. An empty text is the whole
/// list.
/// \throws host::HostError when \a text is anything else, or the process is not in an array job.
Shard parseShard(const std::string& text);

} // namespace vxroi
