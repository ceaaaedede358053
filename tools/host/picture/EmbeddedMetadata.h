#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSize>

/// \file
/// EXIF, XMP and IPTC as libvips provides them: EXIF with or without its prefix "Exif", IPTC bare or within the
/// "Photoshop 3.0" block of a JPEG. Metadata that cannot be parsed is dropped.

namespace host {

/// A resolution in pixels per inch; 0 when it is unknown.
struct Resolution {
    int x = 0;
    int y = 0;
};

/// Metadata of a picture file.
struct EmbeddedMetadata {
    QByteArray exif;
    QByteArray xmp;
    QByteArray iptc;
    QByteArray profile = {}; ///< the ICC profile
    Resolution resolution = {};
    QSize size = {}; ///< in pixels
};

/// EXIF and IPTC of a TIFF, which libvips reads only in part or not at all.
EmbeddedMetadata unreadInTiff(QIODevice& tiff);

/// EXIF and XMP of a JPEG XL, which libvips does not read.
EmbeddedMetadata unreadInJxl(QIODevice& jxl);

/// \a tiff with EXIF and IPTC, which libvips writes only in part or not at all.
QByteArray tiffWithMetadata(const QByteArray& tiff, const EmbeddedMetadata& metadata);

/// \a jpeg, which has no metadata, with \a metadata.
QByteArray jpegWithMetadata(const QByteArray& jpeg, const EmbeddedMetadata& metadata);

/// \a jxl, a bare codestream or a container, with EXIF and XMP, which libvips does not write.
QByteArray jxlWithMetadata(const QByteArray& jxl, const EmbeddedMetadata& metadata);

} // namespace host
