#include "Orientation.h"

#include <utility>

namespace host {

Orientation::Orientation(int exif)
    : isMirrored(exif == 2 || exif == 3 || exif == 7 || exif == 8)
    , isFlipped(exif == 3 || exif == 4 || exif == 5 || exif == 8)
    , isTurned(exif > 4)
{
}

QSize Orientation::inOtherFrame(const QSize& size) const
{
    return isTurned ? size.transposed() : size;
}

QRect Orientation::toStored(const QRect& oriented, const QSize& stored) const
{
    QRect rect = oriented;
    if (isTurned)
        rect = QRect(rect.top(), stored.height() - 1 - rect.right(), rect.height(), rect.width());
    if (isMirrored)
        rect.moveLeft(stored.width() - rect.width() - rect.left());
    if (isFlipped)
        rect.moveTop(stored.height() - rect.height() - rect.top());
    return rect;
}

vips::VImage Orientation::applied(const vips::VImage& image) const
{
    if (!isMirrored && !isFlipped && !isTurned)
        return image;
    vips::VImage seen = image;
    const bool isHalfTurned = isMirrored && isFlipped;
    if (isMirrored && !isHalfTurned)
        seen = seen.fliphor();
    if (isFlipped && !isHalfTurned)
        seen = seen.flipver();
    if (isTurned)
        seen = seen.rot(isHalfTurned ? VIPS_ANGLE_D270 : VIPS_ANGLE_D90);
    else if (isHalfTurned)
        seen = seen.rot(VIPS_ANGLE_D180);
    seen = seen.copy();
    vips_autorot_remove_angle(seen.get_image());
    if (isTurned)
        std::swap(seen.get_image()->Xres, seen.get_image()->Yres);
    return seen;
}

} // namespace host
