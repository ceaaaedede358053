#pragma once

#include "Deadline.h"
#include "Formats.h"
#include "WritingRules.h"

#include <vips/vips8>

#include <QByteArray>

namespace host {

/// Encodes \a picture as a file of \a format. Transparent pixels are flattened onto the background when the format has
/// no opacity; CMYK is converted to sRGB when the format has no CMYK.
/// \throws vips::VError when the format cannot hold the picture, or \a deadline passes.
/// \throws std::bad_alloc
QByteArray encoded(const vips::VImage& picture, const Format& format, const WritingRules& rules,
    const Deadline& deadline);

/// Whether \a error means that the system has no encoder for a format.
bool isMissingEncoder(const vips::VError& error);

} // namespace host
