#pragma once

#include "host/CropRecord.h"

#include <string>

namespace CLI {
class App;
}

namespace vxroi {

/// Says on standard output what became of pictures, in the words that --json and --emit ask for.
class RecordPrinter {
public:
    /// Adds both options, of which a command line has one.
    void addTo(CLI::App& command);

    /// Whether a record is printed for each picture, also for one that failed.
    bool isJsonWanted() const { return json; }

    /// Prints \a record as JSON, or the windows of its crops.
    /// \param isOnlyLine whether it is clear which picture and which shape a window is of; otherwise the line
    /// begins with both.
    /// \throws host::HostError when standard output takes no more.
    void print(const host::CropRecord& record, bool isOnlyLine) const;

private:
    bool json = false;
    std::string emitted = "geometry";
};

} // namespace vxroi
