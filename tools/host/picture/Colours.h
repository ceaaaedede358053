#pragma once

#include <vips/vips8>

/// \file
/// Colours of pictures of libvips. What functions return is computed when it is asked for.

namespace host {

/// Whether \a image has a profile of its colours.
bool hasProfile(const vips::VImage& image);

/// \a image with the profile of \a other.
vips::VImage withProfileOf(const vips::VImage& other, const vips::VImage& image);

/// \a image on mid-grey where it is transparent.
vips::VImage onMidGrey(const vips::VImage& image);

/// \a image in sRGB, by way of its profile when it has one: three bands of 8 bits, and a fourth for opacity
/// when it had one. It has no profile.
vips::VImage inSrgb(const vips::VImage& image);

} // namespace host
