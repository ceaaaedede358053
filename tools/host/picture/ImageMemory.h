#pragma once

#include <QImage>

#include <cstddef>
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

/// Whether so much memory can be had at once.
bool isMemoryLeft(std::size_t bytes);

} // namespace host
