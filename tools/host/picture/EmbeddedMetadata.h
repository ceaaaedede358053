#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSize>

/// \file
/// EXIF, XMP and IPTC as libvips hands them over: EXIF with or without its beginning "Exif", IPTC as in a JPEG, with
/// "Photoshop 3.0", or a plain one. What cannot be understood gives nothing.

namespace host {

/// In pixels per inch; 0 when there is none.
struct Resolution {
    int x = 0;
    int y = 0;
};

/// Metadata of a picture file.
struct EmbeddedMetadata {
    QByteArray exif;
    QByteArray xmp;
    QByteArray iptc;
    QByteArray profile = {}; ///< of its colours
    Resolution resolution = {};
    QSize size = {}; ///< in pixels
};

/// EXIF and IPTC of a TIFF, of which libvips reads none or only a part.
EmbeddedMetadata unreadInTiff(QIODevice& tiff);

/// EXIF and XMP of a JPEG XL, which libvips does not read.
EmbeddedMetadata unreadInJxl(QIODevice& jxl);

/// \a tiff with EXIF and IPTC, which libvips does not write or only in part.
QByteArray tiffWithMetadata(const QByteArray& tiff, const EmbeddedMetadata& metadata);

/// \a jpeg, a file without metadata, with metadata.
QByteArray jpegWithMetadata(const QByteArray& jpeg, const EmbeddedMetadata& metadata);

/// \a jxl, a bare codestream or a container, with EXIF and XMP, which libvips does not write.
QByteArray jxlWithMetadata(const QByteArray& jxl, const EmbeddedMetadata& metadata);

/// \a xmp without what is not true of a crop: its orientation and its thumbnails.
QByteArray xmpOfCrop(const QByteArray& xmp);

/// What they say of who made a picture and whose it is.
QByteArray copyrightInExif(const QByteArray& exif);
QByteArray copyrightInXmp(const QByteArray& xmp);
QByteArray copyrightInIptc(const QByteArray& iptc);

} // namespace host
