#pragma once

#include "vxroi/inputs/ListReader.h"

#include "host/records/CropRecord.h"

#include <optional>

namespace vxroi {

/// The records in a file that `vxroi batch` or `crop --json` wrote, one after the other.
class RecordLines {
public:
    /// \param path the file; "-" is standard input.
    /// \throws host::HostError when it cannot be opened.
    explicit RecordLines(const QString& path);

    /// The next record, or none at the end; empty lines are left out.
    /// \throws host::HostError when the next line is no record, or cannot be read.
    std::optional<host::CropRecord> next();

private:
    host::CropRecord recordFrom(const ListEntry& line) const;

    ListReader lines;
};

} // namespace vxroi
