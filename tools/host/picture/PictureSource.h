#pragma once

#include "Deadline.h"

#include <vips/vips8>

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <memory>

namespace host {

/// Opens a picture file, or standard input for "-", so that it can be read more than once; a pipe is read to its
/// end for that.
/// \throws HostError when it is missing or empty, has more than \a mostBytes, is neither a file nor a
/// pipe, or is a pipe that nobody writes to.
std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes);

/// \a device as libvips reads it, from its beginning; nothing can be read once \a deadline has passed. \pre both
/// outlive what is read.
vips::VSource sourceOf(QIODevice& device, const Deadline& deadline);

/// The bytes of \a device, which must outlive them: those of a file are read when they are looked at.
QByteArray contentOf(QIODevice& device);

} // namespace host
