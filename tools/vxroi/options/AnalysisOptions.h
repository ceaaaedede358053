#pragma once

#include "host/crop/Analysis.h"

namespace CLI {
class App;
}

namespace vxroi {

/// The options for reading and analysing pictures.
struct AnalysisOptions {
    host::AnalysisRules rules { VXCropSettings::photo(), {} };

    /// Adds the options to \a command; parsing it sets the rules, or throws host::HostError when a value is wrong.
    void addTo(CLI::App& command);
};

} // namespace vxroi
