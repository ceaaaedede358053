#pragma once

#include <QImage>

#include <new>

namespace host {

/// \a image, which Qt has scaled, turned or converted. Where Qt finds no memory for it, it is null.
/// \throws std::bad_alloc when it is
inline QImage held(QImage image)
{
    if (image.isNull())
        throw std::bad_alloc();
    return image;
}

} // namespace host
