#pragma once

#include "kernels/BytePlane.h"
#include "kernels/PixelWords.h"

namespace support {

/// The opaque grey ARGB32 image of the levels that \a write fills a plane of that size with.
template <typename Write> QImage greyImage(const QSize& size, const Write& write)
{
    vx::kernels::BytePlane levels = vx::kernels::uninitializedPlane(size);
    write(levels);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < levels.height; ++y) {
        QRgb* const row = vx::kernels::writableWordRow(image, y);
        for (int x = 0; x < levels.width; ++x)
            row[x] = vx::kernels::opaqueGrey(levels.row(y)[x]);
    }
    return image;
}

} // namespace support
