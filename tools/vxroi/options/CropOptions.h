#pragma once

#include "AnalysisOptions.h"
#include "WritingOptions.h"

#include "host/crop/Constraints.h"
#include "host/crop/CropShape.h"
#include "host/crop/Cropper.h"

#include <QString>
#include <QVector>

#include <string>

namespace vxroi {

/// The options of what is cropped and where it goes.
struct CropOptions {
    QVector<host::CropShape> ratios;
    QVector<host::CropShape> sizes;
    bool areRatiosOfSizes = false; ///< a size has one side only, and the ratios give the other
    std::string output;
    host::Constraints constraints;
    std::string map;
    std::string maps; ///< empty: maps are not kept
    host::IfExists ifExists = host::IfExists::Fail;
    host::Fit fit = host::Fit::Smaller;
    bool upscale = false; ///< whatever \a fit says
    bool areAllFramesRead = false;
    bool dryRun = false;
    WritingOptions writing;

    /// Adds them to a command, whose parsing sets the members, or throws host::HostError when one is wrong.
    void addTo(CLI::App& command);

    QVector<host::CropShape> shapes() const;

    /// \throws host::HostError when a placeholder of the output is not known, or the folder of maps cannot be made.
    host::CropRules rules(const AnalysisOptions& analysis) const;

    /// A hash of what decides which crops a picture gets: all options but limits and those of single runs, such as
    /// --if-exists.
    QString request(const AnalysisOptions& analysis) const;

private:
    void addShapeOptions(CLI::App& command);
    void addMapOptions(CLI::App& command);
    void addOutputOptions(CLI::App& command);
};

} // namespace vxroi
