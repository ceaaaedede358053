#pragma once

#include <vips/vips8>

#include <QRect>
#include <QSize>

namespace host {

/// How a picture as it is stored becomes the one that is seen.
class Orientation {
public:
    /// \param exif as EXIF says it, 1 to 8.
    explicit Orientation(int exif);

    /// A size in the stored picture as one in the picture that is seen, or the other way round.
    QSize inOtherFrame(const QSize& size) const;

    /// A rectangle of the picture as it is seen, in pixels of the one of size \a stored.
    QRect toStored(const QRect& oriented, const QSize& stored) const;

    /// \a image as it is seen, and without an orientation then. It is computed when it is asked for.
    vips::VImage applied(const vips::VImage& image) const;

private:
    bool isMirrored; ///< left becomes right, first
    bool isFlipped; ///< top becomes bottom
    bool isTurned; ///< a quarter to the right, at last
};

} // namespace host
