#pragma once

#include <vips/vips8>

#include <QColor>

#include <vector>

/// \file
/// Colours of pictures of libvips. What functions return is computed when it is asked for.

namespace host {

/// On which transparent pictures are analysed.
constexpr QRgb midGrey = 0xff808080;

/// Whether \a image has a profile of other colours than those of sRGB.
bool hasOtherColours(const vips::VImage& image);

/// \a image with the profile of \a other.
vips::VImage withProfileOf(const vips::VImage& other, const vips::VImage& image);

/// \a image with channels for \a colour: a grey one gets those of sRGB when the colour is not grey.
vips::VImage withChannelsFor(const QColor& colour, const vips::VImage& image);

/// \a colour of sRGB as a pixel of \a image has it, by way of its profile when it has one; without opacity.
std::vector<double> pixelOf(const vips::VImage& image, const QColor& colour);

/// \a image on \a background where it is transparent.
vips::VImage on(const QColor& background, const vips::VImage& image);

/// \a image in sRGB, by way of its profile when it has one: three bands of 8 bits, and a fourth for opacity
/// when it had one. It has no profile.
vips::VImage inSrgb(const vips::VImage& image);

/// \a image in sRGB, by way of its profile when it has one, with its depth; grey
/// without a profile stays grey. It has no profile.
vips::VImage inSrgbWithDepth(const vips::VImage& image);

} // namespace host
