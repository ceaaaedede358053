#pragma once

#include <QIODevice>
#include <QString>

#include <memory>

namespace host {

/// Opens a picture file so that it can be read more than once; a pipe is read to its end for that.
/// \throws HostError when it is missing, empty, or has more than \a mostBytes.
std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes);

/// Whether a JPEG has four channels.
/// \param device at the beginning of the JPEG; it is read from.
bool isCmykJpeg(QIODevice& device);

} // namespace host
