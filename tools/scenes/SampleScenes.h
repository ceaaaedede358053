#pragma once

#include <QImage>
#include <QString>
#include <QVector>

namespace scenes {

/// A photo-like picture with a clear subject away from the middle.
struct Scene {
    QString name; ///< also the stem of its file's name
    QImage (*draw)(); ///< draws it, an RGB32 image, the same at every call
};

/// The scenes, in the order in which they are shown.
const QVector<Scene>& sampleScenes();

/// A red hot-air balloon over green hills, 1200 × 800; the subject is right of the middle.
QImage drawBalloon();

/// A white sail on a calm sea at dusk, 1200 × 800; the subject is left of the middle.
QImage drawSailboat();

/// An orange poppy in a blurred meadow, 800 × 1200; the subject is below the middle.
QImage drawPoppy();

} // namespace scenes
