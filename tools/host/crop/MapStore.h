#pragma once

#include <QImage>
#include <QJsonObject>
#include <QSize>
#include <QString>

namespace host {

/// What the map of a picture depends on, besides the version of the program.
struct MapKey {
    QString path; ///< of the picture
    QJsonObject state; ///< that of its file; see stateOf()
    QString settings; ///< how it is analysed; see textOf()
    int frameCount = 1; ///< how many frames are
};

/// The maps of pictures in a folder, so that nobody analyses a picture twice the same way. The file of a map is a PNG that is
/// called by a hash of its key; the path is part of it where the state has no checksum. One object serves any number
/// of threads, and one folder any number of programs.
class MapStore {
public:
    /// \throws HostError when there is no such folder and none can be made.
    explicit MapStore(QString folder);

    /// The map that was kept for \a key, for a picture of size \a picture; null when there is none. A file that is
    /// damaged, or of something else, counts as none.
    QImage find(const MapKey& key, const QSize& picture) const;

    /// Keeps a map.
    /// \throws HostError when it cannot be written.
    void keep(const MapKey& key, const QImage& map) const;

private:
    QString fileNameOf(const MapKey& key) const;

    QString folder;
};

} // namespace host
