#pragma once

#include "EmbeddedMetadata.h"
#include "Formats.h"
#include "WritingRules.h"

#include <vips/vips8>

#include <QByteArray>

/// \file
/// The metadata that a crop keeps of its picture.

namespace host {

/// \a image with the metadata that libvips has not read. Kinds that are empty in \a unread stay as they are.
vips::VImage withUnread(const vips::VImage& image, const EmbeddedMetadata& unread);

/// \a image with the metadata that \a kept selects, and without thumbnails. The profile, the resolution and the delays
/// of frames always stay.
vips::VImage withMetadata(const vips::VImage& image, KeptMetadata kept);

/// \a file, encoded from \a image, with the metadata that the encoder did not write: for a JPEG all of it, for a TIFF
/// or a JPEG XL what libvips cannot write.
QByteArray withMissingMetadata(
    const QByteArray& file, const vips::VImage& image, const Format& format);

} // namespace host
