#pragma once

#include <QImage>

#include <cstddef>

/// \file
/// Where the library gets memory for images.

namespace vx::kernels {

/// Asks the operating system for large pages behind fresh memory that is about to be written: taking
/// in small ones, one after the other, costs as much as computing what goes there.
///
/// Memory of less than 16 MiB is left as it is: allocators keep that for later, and not only for us. (So
/// they may up to 32 MiB; what they keep of that stays in large pages.)
void adviseLargePages(void* memory, std::size_t bytes);

/// An image whose pixels are about to be written, and are not initialized. Null for an empty \a size, and
/// for one that no QImage can have. \pre \a format has 32 bits per pixel, or is QImage::Format_Grayscale8.
/// \throws std::bad_alloc
QImage uninitializedImage(const QSize& size, QImage::Format format);

/// Returns \a image, which Qt was asked to make with this size and depth in bits per pixel. Qt gives a null
/// image where memory runs out.
/// \throws std::bad_alloc for a null image, but not where \a size is empty or no QImage can have it.
QImage held(QImage image, const QSize& size, int depth);

} // namespace vx::kernels
