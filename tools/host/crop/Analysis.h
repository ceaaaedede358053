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
    std::shared_ptr<const MapStore> maps = {}; ///< where maps are stored; null: they are not stored
};

/// An open picture, and the analysis of what draws the eye in it.
class Analysis {
public:
    /// Opens the picture.
    /// \param mapPath a picture to read the salience map from; empty: the map is computed.
    /// \throws HostError when one of the files is missing, is not a picture, or exceeds a limit.
    Analysis(const QString& path, AnalysisRules analysisRules, const QString& mapPath = {});

    PictureFile& picture() { return file; }

    /// The most pixels that are in memory at a time; see PictureFile::countedPixels().
    qint64 countedPixels() const;

    /// Reads the map from \a mapPath, see VXCrop::fromMap(), or computes it. The map of an animation is the mean of the
    /// maps of at most ten frames.
    /// \throws HostError when a picture is damaged.
    VXCrop run();

    /// As run(), but uses a stored map where there is one, and stores a computed one. A map is not stored when reading
    /// the picture gave warnings, because a later run that used it would not repeat them.
    /// \param state the state of the picture's file; see stateOf().
    /// \throws HostError when a picture is damaged, or the map cannot be written.
    VXCrop runWithStore(const QJsonObject& state);

    /// What the user should know about the picture and its map.
    QStringList warnings() const;

private:
    VXCrop compute();
    VXCrop readMap();

    AnalysisRules rules;
    PictureFile file;
    std::unique_ptr<PictureFile> map; ///< null: the map is computed
};

} // namespace host
