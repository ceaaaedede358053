#pragma once

#include "Deadline.h"
#include "Formats.h"
#include "WritingRules.h"

#include <vips/vips8>

#include <QByteArray>

namespace host {

/// \a picture as a file of \a format. A format that knows no transparency gets the background in its place, one
/// that knows no inks gets their colours in sRGB.
/// \throws vips::VError when the format cannot hold it, or \a deadline passes.
/// \throws std::bad_alloc
QByteArray encoded(const vips::VImage& picture, const Format& format, const WritingRules& rules,
    const Deadline& deadline);

/// Whether \a error says that there is no encoder for a format.
bool isForWantOfEncoder(const vips::VError& error);

} // namespace host
