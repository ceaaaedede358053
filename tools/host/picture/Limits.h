#pragma once

#include <vips/vips8>

#include <QIODevice>
#include <QString>

/// \file
/// What a picture may have at most beside its pixels.

namespace host {

/// Refuses a PNG with more than 20 compressed texts, each of which may take 8 megabytes while it is read, and one
/// that claims more than 8 megabytes of anything before its pixels.
/// \param path what the file is called in the error.
/// \throws HostError
void refuseManyTexts(const QString& path, QIODevice& png);

/// Refuses a picture with more than 8 megabytes of metadata.
/// \throws HostError
void refuseMuchMetadata(const QString& path, const vips::VImage& header);

/// Refuses a progressive JPEG with more than 100 scans, each of which takes as long as a whole picture.
/// \throws HostError
void refuseManyScans(const QString& path, QIODevice& jpeg);

} // namespace host
