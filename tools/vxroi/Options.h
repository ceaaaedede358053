#pragma once

#include "host/CropShape.h"
#include "host/Cropper.h"

#include <string>
#include <vector>

namespace CLI {
class App;
class Validator;
} // namespace CLI

namespace vxroi {

/// The options of how a picture is read and analysed, as given.
struct AnalysisOptions {
    std::string preset = "photo";
    std::vector<std::string> weights;
    std::vector<std::string> tunings;
    qint64 maxPixels = host::ReadingRules().mostPixels;
    qint64 maxBytes = host::ReadingRules().mostBytes;
    int maxSeconds = host::ReadingRules().mostSeconds;
    std::string onBroken = "error";

    void addTo(CLI::App& command);

    /// \throws host::HostError when one of them is wrong.
    host::AnalysisRules rules() const;
};

/// The options of what is cropped and where it goes, as given.
struct CropOptions {
    std::string ratios;
    std::vector<std::string> sizes;
    std::string output;
    std::vector<std::string> keep;
    std::vector<std::string> avoid;
    std::string focus;
    std::string map;
    std::string ifExists = "fail";
    bool upscale = false;
    bool dryRun = false;

    void addTo(CLI::App& command);

    /// \throws host::HostError when one of them is wrong.
    QVector<host::CropShape> shapes() const;
    VXCropConstraints constraints() const;
    host::CropRules rules(const AnalysisOptions& analysis) const;
};

/// Refuses an empty name, as an unset variable of a shell gives: without the option, another way is taken.
CLI::Validator namesFile();

/// Adds the options --keep and --avoid, which are areas as parseArea() reads them.
void addAreaOptions(
    CLI::App& command, std::vector<std::string>& keep, std::vector<std::string>& avoid);

/// Reads areas such as "10,20,300,200": left, top, width and height in pixels.
/// \throws host::HostError when one is anything else.
QVector<QRect> parseAreas(const std::vector<std::string>& texts, const QString& option);

/// Reads one such area.
/// \throws host::HostError when \a text is anything else.
QRect parseArea(const QString& text, const QString& option);

/// Reads a point such as "0.5,0.33", each from 0 to 1.
/// \throws host::HostError when \a text is anything else.
QPointF parsePoint(const QString& text);

} // namespace vxroi
