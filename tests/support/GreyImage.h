#pragma once

#include "kernels/image/GreyMap.h"

#include <QImage>

namespace support {

/// The opaque grey ARGB32 image of the grey map that \a write fills.
template <typename Write> QImage greyImage(const QSize& size, const Write& write)
{
    QImage greyMap = vx::kernels::uninitializedGreyMap(size);
    write(greyMap);
    return greyMap.convertToFormat(QImage::Format_ARGB32);
}

} // namespace support
