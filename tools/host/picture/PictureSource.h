#pragma once

#include "Deadline.h"

#include <vips/vips8>

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <memory>

namespace host {

/// Opens a picture file, or standard input for "-", for random access; a pipe is read to its end into memory.
/// \throws HostError when it is missing or empty, has more than \a mostBytes, is neither a file nor a
/// pipe, or is a pipe that nobody writes to.
std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes);

/// \a device as a source of libvips, from its beginning. Reading fails once \a deadline has passed.
/// \pre \a device and \a deadline outlive the source and all images read from it.
vips::VSource sourceOf(QIODevice& device, const Deadline& deadline);

/// The bytes of \a device; those of a file are memory-mapped. \pre \a device outlives the result.
QByteArray contentOf(QIODevice& device);

} // namespace host
