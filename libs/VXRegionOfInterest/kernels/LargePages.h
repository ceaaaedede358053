#pragma once

#include <QImage>

#include <cstddef>

namespace vx::kernels {

/// Asks the operating system for large pages behind fresh memory that is about to be written: taking
/// in small ones, one after the other, costs as much as computing what goes there.
///
/// Memory of less than 16 MiB is left as it is: allocators keep that for later, and not only for us. (So
/// they may up to 32 MiB; what they keep of that stays in large pages.)
void adviseLargePages(void* memory, std::size_t bytes);

/// An image whose pixels are about to be written, and are not initialized. Null for an empty size.
QImage uninitializedImage(const QSize& size, QImage::Format format);

} // namespace vx::kernels
