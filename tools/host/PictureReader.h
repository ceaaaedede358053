#pragma once

#include <QImage>
#include <QString>

namespace host {

/// Reads the picture in the file \a path.
///
/// The content decides the format, not the name; of several frames the first is read; the EXIF
/// orientation is applied.
/// \return the picture in QImage::Format_ARGB32, never null.
/// \throws HostError when the file is missing, is no picture, or is a damaged or truncated one.
QImage readPicture(const QString& path);

} // namespace host
