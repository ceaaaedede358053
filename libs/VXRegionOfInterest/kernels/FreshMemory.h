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

/// How many bytes to ask for in place of \a bytes, the largest block that a call needs, so that the next
/// call finds the same memory. Taking in fresh pages takes longer than computing what goes there.
///
/// glibc returns what is free at the end of its heap from twice the largest block on, of those up to 32
/// MiB, that has come and gone (see mallopt(3) about dynamic thresholds). A call's other blocks together
/// are up to twice as large as its largest one, which therefore gets three times its size. Nothing is
/// written to that room, so no memory is behind it. Blocks from 32 MiB on come and go in any case.
std::size_t withRoomToSpare(std::size_t bytes);

/// An image whose pixels are about to be written, and are not initialized. Null for an empty size.
QImage uninitializedImage(const QSize& size, QImage::Format format);

} // namespace vx::kernels
