#pragma once

#include "ReportCommand.h"
#include "ReportEntry.h"

#include <functional>
#include <memory>
#include <optional>

namespace vxroi {

/// Where the entries of a report come from, one after the other.
class ReportSource {
public:
    ReportSource() = default;
    ReportSource(const ReportSource&) = delete;
    ReportSource& operator=(const ReportSource&) = delete;
    virtual ~ReportSource() = default;

    /// What makes the next entry, in any thread and while the source lives; none at the end.
    /// \throws host::HostError when the page cannot be drawn at all.
    virtual std::optional<std::function<ReportEntry()>> next() = 0;
};

/// The pictures, or the records, that the command line names.
/// \throws host::HostError when it names both or neither, or the page would replace one of them.
std::unique_ptr<ReportSource> sourceOf(const ReportArguments& arguments);

} // namespace vxroi
