#pragma once

#include "Formats.h"

#include <vips/vips8>

/// \file
/// What the header of a picture tells about its format and its decoder.

namespace host {

/// The format of the picture in \a source; null when it is not one of formats(). HEIC counts as AVIF; see isAvif().
const Format* formatOf(const vips::VSource& source);

/// Whether a picture that has the decoder of HEIC and AVIF is an AVIF, which depends on its compression.
bool isAvif(const vips::VImage& header);

/// Whether a JPEG has several scans, as progressive ones have.
bool isMultiScan(const vips::VImage& header);

/// Whether the decoder keeps the whole picture in memory: up to nine bytes for a pixel with 8 bits per channel.
bool isDecodedWhole(const vips::VImage& header, const Format& format);

/// The bytes of one channel of a pixel: 1 for 8 bits, 2 for 16.
int bytesPerLevel(const vips::VImage& image);

} // namespace host
