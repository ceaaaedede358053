#pragma once

#include <vips/vips8>

#include <QRect>
#include <QSize>

namespace host {

/// The transformation of a stored picture into the picture as it is seen: the EXIF orientation.
class Orientation {
public:
    /// \param exif the value in EXIF, 1 to 8.
    explicit Orientation(int exif);

    /// Converts a size in the stored picture to one in the picture as seen, or the reverse.
    QSize inOtherFrame(const QSize& size) const;

    /// Converts a rectangle in the picture as seen to one in the stored picture, which has the size \a stored.
    QRect toStored(const QRect& oriented, const QSize& stored) const;

    /// \a image as it is seen, without an orientation in its metadata; computed lazily.
    vips::VImage applied(const vips::VImage& image) const;

private:
    bool isMirrored; ///< step 1: left and right are exchanged
    bool isFlipped; ///< step 2: top and bottom are exchanged
    bool isTurned; ///< step 3: a quarter turn to the right
};

} // namespace host
