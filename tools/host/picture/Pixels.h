#pragma once

#include "Deadline.h"

#include <vips/vips8>

#include <QRect>

#include <cstddef>

/// \file
/// Pixels of libvips images in memory. Returned images keep the colours, the profile and the metadata of their source.

namespace host {

/// Checks the return value of a libvips function. \throws vips::VError unless \a status is 0.
void check(int status);

/// How many bytes a row of \a image takes.
std::size_t bytesPerRow(const vips::VImage& image);

/// How many bytes the pixels of \a image take.
std::size_t bytesOf(const vips::VImage& image);

/// The address of a pixel of \a image. \pre the image is in memory.
uchar* addressOf(const vips::VImage& image, int x, int y);

/// The bounds of \a image.
QRect boundsOf(const vips::VImage& image);

/// Makes the computation of \a image fail once \a deadline has passed.
void setDeadline(const vips::VImage& image, const Deadline& deadline);

/// A part of \a image, computed immediately into memory, in this thread.
/// \throws vips::VError, also when \a deadline passes.
vips::VImage inMemory(const vips::VImage& image, const QRect& part, const Deadline& deadline);

} // namespace host
