#pragma once

#include <QImage>

#include <cstddef>
#include <new>

namespace host {

/// Returns \a image, the result of an operation of Qt, which is null when Qt ran out of memory.
/// \throws std::bad_alloc when the image is null.
inline QImage notNull(QImage image)
{
    if (image.isNull())
        throw std::bad_alloc();
    return image;
}

/// Whether a block of \a bytes can be allocated.
bool isMemoryLeft(std::size_t bytes);

} // namespace host
