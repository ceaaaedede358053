#pragma once

#include "host/CropShape.h"
#include "host/CropWindow.h"
#include "host/Cropper.h"
#include "host/PictureReader.h"
#include "host/SalienceSettings.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vxroi {

/// The options of how a picture is read and analysed, as given.
struct AnalysisOptions {
    std::string preset = "photo";
    std::vector<std::string> weights;
    std::vector<std::string> tunings;
    qint64 maxPixels = host::ReadingRules().mostPixels;
    qint64 maxBytes = host::ReadingRules().mostBytes;
    std::string onBroken = "error";

    void addTo(CLI::App& command);

    /// \throws host::HostError when one of them is wrong.
    host::SalienceSettings salience() const;
    host::ReadingRules reading() const;
};

/// The options of what is cropped and where it goes, as given.
struct CropOptions {
    std::string ratios;
    std::vector<std::string> sizes;
    std::string output;
    std::vector<std::string> keep;
    std::string focus;
    std::string ifExists = "fail";
    bool upscale = false;
    bool dryRun = false;

    void addTo(CLI::App& command);

    /// \throws host::HostError when one of them is wrong.
    QVector<host::CropShape> shapes() const;
    host::Wishes wishes() const;
    host::CropRules rules(const AnalysisOptions& analysis) const;
};

/// Reads an area such as "10,20,300,200": left, top, width and height in pixels.
/// \throws host::HostError when \a text is anything else.
QRect parseArea(const QString& text);

/// Reads a point such as "0.5,0.33", each from 0 to 1.
/// \throws host::HostError when \a text is anything else.
QPointF parsePoint(const QString& text);

} // namespace vxroi
