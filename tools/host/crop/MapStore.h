#pragma once

#include <QImage>
#include <QJsonObject>
#include <QSize>
#include <QString>

namespace host {

/// What the map of a picture depends on, besides the version of the program.
struct MapKey {
    QString path; ///< of the picture
    QJsonObject state; ///< of the picture's file; see stateOf()
    QString settings; ///< how the picture is analysed; see textOf()
    int frameCount = 1; ///< how many frames are analysed
};

/// Stores the maps of pictures in a folder, so that no picture is analysed twice with the same settings. Each map is a
/// PNG whose name is a hash of its key; the path is hashed only where the state has no checksum. One object may be used
/// from any number of threads, and one folder by any number of processes.
class MapStore {
public:
    /// \throws HostError when the folder does not exist and cannot be created.
    explicit MapStore(QString folder);

    /// The map stored for \a key, for a picture of size \a picture. Null when there is none, and when the file is
    /// damaged or has another size than the map would have.
    QImage find(const MapKey& key, const QSize& picture) const;

    /// Stores a map.
    /// \throws HostError when it cannot be written.
    void keep(const MapKey& key, const QImage& map) const;

private:
    QString fileNameOf(const MapKey& key) const;

    QString folder;
};

} // namespace host
