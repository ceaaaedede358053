#pragma once

#include "Deadline.h"

#include <vips/vips8>

#include <QRect>

#include <cstddef>

/// \file
/// Pixels of libvips in memory. What functions return has the colours, the profile and the metadata of what they
/// got.

namespace host {

/// \throws vips::VError unless \a status, which a function of libvips has returned, is 0.
void check(int status);

/// How many bytes a row of \a image takes.
std::size_t bytesPerRow(const vips::VImage& image);

/// How many bytes the pixels of \a image take.
std::size_t bytesOf(const vips::VImage& image);

/// Where a pixel of \a image is. \pre the image is in memory.
uchar* addressOf(const vips::VImage& image, int x, int y);

/// The bounds of \a image.
QRect boundsOf(const vips::VImage& image);

/// Makes what computes \a image fail once \a deadline has passed.
void endLate(const vips::VImage& image, const Deadline& deadline);

/// A part of \a image, computed now, in memory, in this thread.
/// \throws vips::VError, also when \a deadline passes.
vips::VImage inMemory(const vips::VImage& image, const QRect& part, const Deadline& deadline);

} // namespace host
