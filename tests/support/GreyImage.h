#pragma once

#include "kernels/image/Levels.h"

#include <QImage>

namespace support {

/// The opaque grey ARGB32 image of the levels that \a write fills an image in Grayscale8 with.
template <typename Write> QImage greyImage(const QSize& size, const Write& write)
{
    QImage levels = vx::kernels::uninitializedLevels(size);
    write(levels);
    return levels.convertToFormat(QImage::Format_ARGB32);
}

} // namespace support
