#pragma once

#include <vips/vips8>

#include <QByteArray>
#include <QString>

namespace host {

/// Whether pictures are written in the format of files that end in \a suffix, such as "jpg".
bool isWritten(const QString& suffix);

/// \a picture as a file that ends in \a suffix. A format that knows no transparency gets white in its place, one
/// that knows no inks gets their colours in sRGB.
/// \pre isWritten(suffix)
/// \throws vips::VError when the format cannot hold it.
/// \throws std::bad_alloc
QByteArray encoded(const vips::VImage& picture, const QString& suffix);

} // namespace host
