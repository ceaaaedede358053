#pragma once

#include <vips/vips8>

/// \file
/// Colours of pictures of libvips. What functions return is computed when it is asked for.

namespace host {

/// The level on which transparent pictures are analysed.
constexpr int midGrey = 128;

/// Whether \a image has a profile of other colours than those of sRGB.
bool hasOtherColours(const vips::VImage& image);

/// \a image with the profile of \a other.
vips::VImage withProfileOf(const vips::VImage& other, const vips::VImage& image);

/// \a image on grey of \a level, 0 to 255, where it is transparent.
vips::VImage onGrey(const vips::VImage& image, int level);

/// \a image in sRGB, by way of its profile when it has one: three bands of 8 bits, and a fourth for opacity
/// when it had one. It has no profile.
vips::VImage inSrgb(const vips::VImage& image);

} // namespace host
