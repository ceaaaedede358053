#pragma once

#include <QIODevice>
#include <QSize>
#include <QString>

#include <memory>

namespace host {

/// Opens a picture file so that it can be read more than once; a pipe is read to its end for that.
/// \throws HostError when it is missing or empty, has more than \a mostBytes, is neither a file nor a
/// pipe, or is a pipe that nobody writes to.
std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes);

/// The size of the screen that the frames of a GIF are drawn on, in pixels; the frames themselves may be
/// smaller.
/// \param device at the beginning of the GIF; it is read from.
QSize gifScreenSize(QIODevice& device);

/// Whether a BMP without compression has fewer bytes than its header says that its pixels take.
/// \param device at the beginning of the BMP; it is read from.
bool isBmpCutShort(QIODevice& device);

/// Whether a GIF ends before its first frame does.
/// \param device at the beginning of the GIF; it is read from.
bool isGifCutShort(QIODevice& device);

/// Whether a JPEG has four channels.
/// \param device at the beginning of the JPEG; it is read from.
bool isCmykJpeg(QIODevice& device);

} // namespace host
