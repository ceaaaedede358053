#pragma once

#include "vxroi/inputs/ListReader.h"

#include "host/records/CropRecord.h"

#include <optional>

namespace vxroi {

/// Reads the records in a file written by `vxroi batch` or `crop --json`, one after another.
class RecordLines {
public:
    /// \param path the file; "-" is standard input.
    /// \throws host::HostError when it cannot be opened.
    explicit RecordLines(const QString& path);

    /// The next record; std::nullopt at the end. Empty lines are skipped.
    /// \throws host::HostError when the next line is not a record, or cannot be read.
    std::optional<host::CropRecord> next();

private:
    host::CropRecord recordFrom(const ListEntry& line) const;

    ListReader lines;
};

} // namespace vxroi
