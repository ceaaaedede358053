#pragma once

#include <vips/vips8>

#include <QIODevice>
#include <QString>

/// \file
/// How much metadata a picture may have.

namespace host {

/// Refuses a PNG with more than 20 compressed texts, each of which may take 8 megabytes while it is read.
/// \param path what the file is called in the error.
/// \throws HostError
void refuseManyTexts(const QString& path, QIODevice& png);

/// Refuses a picture with more than 8 megabytes of metadata.
/// \throws HostError
void refuseMuchMetadata(const QString& path, const vips::VImage& header);

} // namespace host
