#pragma once

#include "host/crop/CropShape.h"
#include "host/crop/Cropper.h"

#include <QJsonObject>

#include <memory>
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

/// The options of how pictures are written, as given.
struct WritingOptions {
    std::string format; ///< empty: as the name's suffix says
    int quality = 0;
    std::string chroma = "auto";
    bool progressive = false;
    std::string metadata = "keep";
    bool toSrgb = false;
    std::string background = "white";

    void addTo(CLI::App& command);

    /// \throws host::HostError when one of them is wrong.
    host::WritingRules rules() const;

    /// All of them.
    QJsonObject toJson() const;
};

/// The options of what is cropped and where it goes, as given.
struct CropOptions {
    std::vector<std::string> ratios;
    std::vector<std::string> sizes;
    std::string output;
    std::vector<std::string> keep;
    std::vector<std::string> avoid;
    std::string focus;
    std::string map;
    std::string maps; ///< empty: maps are not kept
    std::string ifExists = "fail";
    std::string fit = "crop";
    std::string frames = "first";
    bool upscale = false;
    bool dryRun = false;
    WritingOptions writing;

    void addTo(CLI::App& command);

    /// \throws host::HostError when one of them is wrong.
    QVector<host::CropShape> shapes() const;
    host::Constraints constraints() const;
    host::CropRules rules(const AnalysisOptions& analysis) const;

    /// A hash of what decides which crops a picture gets: all options but limits and those of single runs, such as
    /// --if-exists.
    QString request(const AnalysisOptions& analysis) const;
};

/// A hash of what \a object holds, 16 hexadecimal digits.
QString shortHashOf(const QJsonObject& object);

/// Adds --maps, a folder in which maps are kept.
void addMapsOption(CLI::App& command, std::string& folder);

/// The maps in a folder; nullptr for an empty name.
/// \throws host::HostError when there is no such folder and none can be made.
std::shared_ptr<const host::MapStore> mapsIn(const std::string& folder);

/// Adds -q: nothing goes to stderr but the line that says why the command as a whole failed.
void addQuietOption(CLI::App& command, bool& quiet);

/// A path as it is given on a command line.
QString pathFrom(const std::string& argument);

/// Refuses an empty name, as an unset variable of a shell gives: without the option, another way is taken.
CLI::Validator namesFile();

/// Adds the options --keep and --avoid, which are areas as host::parseArea() reads them.
void addAreaOptions(
    CLI::App& command, std::vector<std::string>& keep, std::vector<std::string>& avoid);

/// \throws host::HostError when one is none; see host::parseArea().
QVector<host::Area> parseAreas(const std::vector<std::string>& texts, const QString& option);

} // namespace vxroi
