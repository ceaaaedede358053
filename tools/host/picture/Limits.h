#pragma once

#include <vips/vips8>

#include <QIODevice>
#include <QString>

/// \file
/// Limits on what a picture file contains besides its pixels.

namespace host {

/// Refuses a PNG with more than 20 compressed texts, each of which may expand to 8 megabytes, and one with a chunk of
/// more than 8 megabytes before its pixels.
/// \param path the file's name in the error.
/// \throws HostError
void refuseManyTexts(const QString& path, QIODevice& png);

/// Refuses a picture with more than 8 megabytes of metadata.
/// \throws HostError
void refuseMuchMetadata(const QString& path, const vips::VImage& header);

/// Refuses a progressive JPEG with more than 100 scans, each of which takes as long to decode as a whole picture.
/// \throws HostError
void refuseManyScans(const QString& path, QIODevice& jpeg);

} // namespace host
