#pragma once

#include "EmbeddedMetadata.h"
#include "Formats.h"
#include "WritingRules.h"

#include <vips/vips8>

#include <QByteArray>

/// \file
/// What is kept of a picture's metadata.

namespace host {

/// \a image with metadata that libvips has not read; what there is none of stays.
vips::VImage withUnread(const vips::VImage& image, const EmbeddedMetadata& unread);

/// \a image with so much of its metadata as \a kept says, and without thumbnails. Its profile, its resolution and
/// how long its frames last stay.
vips::VImage withMetadata(const vips::VImage& image, KeptMetadata kept);

/// \a file, which has been made of \a image, with the metadata that it lacks because libvips cannot write it, and all
/// that a JPEG can have.
QByteArray withMissingMetadata(
    const QByteArray& file, const vips::VImage& image, const Format& format);

} // namespace host
