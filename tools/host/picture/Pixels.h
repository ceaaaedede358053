#pragma once

#include "Deadline.h"

#include <vips/vips8>

#include <QImage>
#include <QRect>
#include <QSize>

#include <cstddef>

/// \file
/// What is done with decoded pixels. Images are as libvips describes them; unless it says otherwise, what a
/// function returns has the colours, the profile and the metadata of what it got, and is computed when it
/// is asked for.

namespace host {

/// Whether \a image has a profile of its colours.
bool hasProfile(const vips::VImage& image);

/// A part of \a image, computed now, in memory, in this thread.
/// \throws vips::VError, also when \a deadline passes
vips::VImage inMemory(const vips::VImage& image, const QRect& part, const Deadline& deadline);

/// How many bytes the pixels of \a image take.
std::size_t bytesOf(const vips::VImage& image);

/// The bounds of \a image.
QRect boundsOf(const vips::VImage& image);

/// \a image on mid-grey where it is transparent.
vips::VImage onMidGrey(const vips::VImage& image);

/// \a image in sRGB, by way of its profile when it has one: three bands of 8 bits, and a fourth for opacity
/// when it had one. It has no profile.
vips::VImage inSrgb(const vips::VImage& image);

/// A part of \a image, which is in memory, at \a size.
///
/// What has 8 bits is scaled by Qt, which averages the pixels that a pixel stands for; what has more, or
/// colours that Qt does not know, by libvips with Lanczos' kernel.
vips::VImage scaledTo(const vips::VImage& image, const QRect& part, const QSize& size);

/// \a image with the profile of \a other.
vips::VImage withProfileOf(const vips::VImage& other, const vips::VImage& image);

/// \a image turned and mirrored as EXIF's \a orientation, 1 to 8, says; it says no orientation then.
vips::VImage oriented(const vips::VImage& image, int orientation);

/// Whether Qt knows the colours of \a image: 8 bits, grey, or as in sRGB with or without opacity.
bool isForQt(const vips::VImage& image);

/// The pixels of \a image, which is in memory then, as Qt takes them. \pre isForQt(image)
QImage toQImage(const vips::VImage& image);

/// A copy of \a image: grey, with colours, or with colours and opacity, 8 bits each. It has its profile, its
/// resolution and its texts.
vips::VImage toVipsImage(const QImage& image);

} // namespace host
