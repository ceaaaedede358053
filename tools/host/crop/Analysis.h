#pragma once

#include "host/picture/PictureFile.h"

#include <VXCrop/VXCrop.h>

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace host {

class MapStore;

/// How pictures are read and analysed.
struct AnalysisRules {
    VXCropSettings salience;
    ReadingRules reading;
    std::shared_ptr<const MapStore> maps = {}; ///< where maps are kept; none: nowhere
};

/// A picture that is open, and what draws the eye in it.
class Analysis {
public:
    /// Opens the picture.
    /// \param mapPath a picture to take the salience map from; empty: it is computed.
    /// \throws HostError when one of them is missing, is not a picture, or breaks the rules.
    Analysis(const QString& path, const AnalysisRules& analysisRules, const QString& mapPath = {});

    PictureFile& picture() { return file; }

    /// How many pixels may be held at a time; see PictureFile::countedPixels().
    qint64 countedPixels() const;

    /// Takes the map from the picture that was named for it, see VXCrop::fromMap(), or computes it: of several frames,
    /// it is the mean of the maps of at most ten.
    /// \throws HostError when a picture is damaged.
    VXCrop run();

    /// The same, but a map that was kept before is taken, and one that is computed is kept, unless reading the picture
    /// gave warnings: they would be missed the next time.
    /// \param state that of the picture's file; see stateOf().
    /// \throws HostError when a picture is damaged, or the map cannot be written.
    VXCrop runOrTakeKept(const QJsonObject& state);

    /// What the user should know of the picture and its map.
    QStringList warnings() const;

private:
    VXCrop compute();
    VXCrop takeMap();

    AnalysisRules rules;
    PictureFile file;
    std::unique_ptr<PictureFile> map; ///< none: it is computed
};

} // namespace host
