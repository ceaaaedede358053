#pragma once

#include "host/crop/Analysis.h"

namespace CLI {
class App;
}

namespace vxroi {

/// The options of how a picture is read and analysed.
struct AnalysisOptions {
    host::AnalysisRules rules { VXCropSettings::photo(), {} };

    /// Adds them to a command, whose parsing sets the rules, or throws host::HostError when one is wrong.
    void addTo(CLI::App& command);
};

} // namespace vxroi
