#pragma once

#include <QImage>

#include <cstddef>

/// \file
/// How images come by memory, and what happens where there is none.

namespace vx::kernels {

/// Asks the operating system to back fresh memory with large pages. Without them, the page faults of writing it for
/// the first time cost as much as the arithmetic.
///
/// Blocks of less than 16 MiB are left alone: allocators keep those for reuse, also by other code. (They may keep
/// blocks of up to 32 MiB, whose pages then stay large.)
void adviseLargePages(void* memory, std::size_t bytes);

/// An image whose pixels are not initialised, because they are about to be written. Null for an empty \a size, and
/// for one that no QImage can have. \pre \a format has 32 bits per pixel, or is QImage::Format_Grayscale8.
/// \throws std::bad_alloc
QImage uninitializedImage(const QSize& size, QImage::Format format);

/// Returns \a image, which Qt was asked to make with this size and depth in bits per pixel. Where memory runs out, Qt
/// returns a null image instead of throwing.
/// \throws std::bad_alloc for a null image, but not where \a size is empty or no QImage can have it.
QImage held(QImage image, const QSize& size, int depth);

} // namespace vx::kernels
