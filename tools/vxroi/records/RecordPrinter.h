#pragma once

#include "host/records/CropRecord.h"

#include <QByteArray>

namespace CLI {
class App;
}

namespace vxroi {

/// Says what became of pictures, in the words that --json and --emit ask for.
class RecordPrinter {
public:
    enum class Output {
        Json, ///< the record
        Geometry, ///< of windows: WxH+X+Y
        Css, ///< object-position
        Focus, ///< FX,FY
    };

    /// \param unlessAsked what is printed when neither option is given.
    explicit RecordPrinter(Output unlessAsked);

    /// Adds both options, of which a command line has one.
    void addTo(CLI::App& command);

    /// Whether a record is printed for each picture, also for one that failed.
    bool isJsonWanted() const { return json || emitted == Output::Json; }

    /// Whether one of the options is given.
    bool isAsked() const;

    /// \a record as a line of JSON, or a line for the window of each of its crops. What was skipped has no window.
    /// \param isOnlyLine whether it is clear which picture and which shape a window is of; otherwise the line
    /// begins with both.
    QByteArray linesOf(const host::CropRecord& record, bool isOnlyLine = false) const;

private:
    bool json = false;
    Output emitted;
    Output unlessAsked;
};

} // namespace vxroi
