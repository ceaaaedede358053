#pragma once

#include "ReportCommand.h"
#include "ReportEntry.h"

#include <functional>
#include <memory>
#include <optional>

namespace vxroi {

/// The source of the entries of a report, one after another.
class ReportSource {
public:
    ReportSource() = default;
    ReportSource(const ReportSource&) = delete;
    ReportSource& operator=(const ReportSource&) = delete;
    virtual ~ReportSource() = default;

    /// A function that makes the next entry; it may be called from any thread during the lifetime of the source.
    /// std::nullopt at the end.
    /// \throws host::HostError when the page cannot be drawn at all.
    virtual std::optional<std::function<ReportEntry()>> next() = 0;
};

/// The source for the pictures or the records that the command line names.
/// \throws host::HostError when it names both or neither, or the page would overwrite one of them.
std::unique_ptr<ReportSource> sourceOf(const ReportArguments& arguments);

} // namespace vxroi
