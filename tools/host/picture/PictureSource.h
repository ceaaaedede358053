#pragma once

#include <vips/vips8>

#include <QIODevice>
#include <QString>

#include <memory>

namespace host {

/// Opens a picture file so that it can be read more than once; a pipe is read to its end for that.
/// \throws HostError when it is missing or empty, has more than \a mostBytes, is neither a file nor a
/// pipe, or is a pipe that nobody writes to.
std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes);

/// \a device as libvips reads it, from its beginning. \pre the device outlives what is read from it.
vips::VSource sourceOf(QIODevice& device);

} // namespace host
