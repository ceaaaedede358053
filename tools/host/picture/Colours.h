#pragma once

#include <vips/vips8>

#include <QColor>

#include <vector>

/// \file
/// Colour conversions of libvips images. The returned images are computed lazily, when their pixels are read.

namespace host {

/// The background on which transparent pictures are analysed.
constexpr QRgb midGrey = 0xff808080;

/// Whether \a image has a colour profile other than sRGB.
bool hasOtherColours(const vips::VImage& image);

/// \a image with the profile of \a other.
vips::VImage withProfileOf(const vips::VImage& other, const vips::VImage& image);

/// \a image with enough channels for \a colour: a grey image becomes sRGB when the colour is not grey.
vips::VImage withChannelsFor(const QColor& colour, const vips::VImage& image);

/// The sRGB \a colour as the channel values of a pixel of \a image, converted to its profile if it has one; without
/// opacity.
std::vector<double> pixelOf(const vips::VImage& image, const QColor& colour);

/// \a image flattened onto \a background, without opacity.
vips::VImage on(const QColor& background, const vips::VImage& image);

/// \a image in sRGB, converted by its profile if it has one: three bands of 8 bits, and a fourth if it has opacity. The
/// result has no profile.
vips::VImage inSrgb(const vips::VImage& image);

/// \a image in sRGB, converted by its profile if it has one, with its bit depth; grey without a profile stays grey. The
/// result has no profile.
vips::VImage inSrgbWithDepth(const vips::VImage& image);

} // namespace host
