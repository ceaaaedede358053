#pragma once

#include "host/records/CropRecord.h"

#include <QByteArray>

namespace CLI {
class App;
}

namespace vxroi {

/// Prints the results for pictures in the form that --json and --emit select.
class RecordPrinter {
public:
    enum class Output {
        Json, ///< the record
        Geometry, ///< the window of each crop: WxH+X+Y
        Css, ///< the object-position of each crop
        Focus, ///< the focus of each crop: FX,FY
    };

    /// \param outputByDefault the form when neither option is given.
    explicit RecordPrinter(Output outputByDefault);

    /// Adds both options, which exclude each other.
    void addTo(CLI::App& command);

    /// Whether a record is printed for each picture, including those that failed.
    bool isJsonWanted() const { return json || output == Output::Json; }

    /// Whether one of the options is given.
    bool isRequested() const;

    /// \a record as a line of JSON, or as one line for each of its crops; skipped crops give no line.
    /// \param isOnlyLine whether the command prints only one line; otherwise each line begins with the picture and the
    /// shape.
    QByteArray linesOf(const host::CropRecord& record, bool isOnlyLine = false) const;

private:
    bool json = false;
    Output output;
    Output defaultOutput;
};

} // namespace vxroi
