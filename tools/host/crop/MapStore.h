#pragma once

#include "Analysis.h"
#include "host/files/FileState.h"

#include <QImage>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace host {

/// The maps of pictures in a folder, so that nobody analyses a picture twice the same way. The file of a map is a PNG that is called
/// by a hash of what it belongs to: the state of the picture's file (and its path, where the state has no checksum), the settings, the frames and
/// the version of the program. One object serves any number of threads, and one folder any number of programs.
class MapStore {
public:
    /// \throws HostError when there is no such folder and none can be made.
    explicit MapStore(QString folder);

    /// Takes the analysis of a picture from its map, or analyses it and keeps the map, unless reading the picture gave
    /// warnings: they would be missed the next time.
    /// \param state that of the picture's file; without one there is nothing to go by.
    /// \throws HostError when the picture is damaged or its map cannot be written.
    VXCrop analysisOf(PictureFile& picture, const std::optional<QJsonObject>& state,
        const AnalysisRules& rules) const;

    /// The map of a picture, if it is there: null if not.
    /// \param settings how it was analysed; see textOf().
    /// \param frameCount how many frames were.
    /// \param size the picture's.
    QImage find(const QString& picture, const QJsonObject& state, const QString& settings,
        int frameCount, const QSize& size) const;

private:
    QString nameOf(const QString& picture, const QJsonObject& state, const QString& settings,
        int frameCount) const;

    QString folder;
};

} // namespace host
