#pragma once

#include "AnalysisOptions.h"
#include "FaceOptions.h"
#include "WritingOptions.h"

#include "host/crop/Constraints.h"
#include "host/crop/CropShape.h"
#include "host/crop/CropTask.h"

#include <QString>
#include <QVector>

#include <string>

namespace vxroi {

/// The options for what is cropped and where the crops are written.
struct CropOptions {
    QVector<host::CropShape> ratios;
    QVector<host::CropShape> sizes;
    bool areRatiosForSizes = false; ///< a size has one side, and the ratios only give the other
    std::string output;
    host::Constraints constraints;
    std::string map;
    std::string maps; ///< a folder; empty: maps are not stored
    host::IfExists ifExists = host::IfExists::Fail;
    host::Fit fit = host::Fit::Smaller;
    bool upscale = false; ///< overrides fit
    bool areAllFramesRead = false;
    bool dryRun = false;
    FaceOptions faces;
    WritingOptions writing;

    /// Adds the options to \a command; parsing it sets the members, or throws host::HostError when a value is wrong.
    void addTo(CLI::App& command);

    /// The requested shapes, in order.
    QVector<host::CropShape> shapes() const;

    /// \throws host::HostError when the output has an unknown placeholder, the folder of maps cannot be created, or the
    /// detector of faces is not installed.
    host::CropRules rules(const AnalysisOptions& analysis) const;

    /// A hash of the options that determine the results: all but limits and those that concern a single run, such as
    /// --if-exists.
    QString request(const AnalysisOptions& analysis) const;

private:
    void addShapeOptions(CLI::App& command);
    void addMapOptions(CLI::App& command);
    void addOutputOptions(CLI::App& command);
};

} // namespace vxroi
