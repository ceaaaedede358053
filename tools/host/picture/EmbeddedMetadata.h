#pragma once

#include <QByteArray>
#include <QIODevice>

/// \file
/// EXIF, XMP and IPTC as libvips hands them over: EXIF begins with "Exif", IPTC is that of a JPEG with its
/// "Photoshop 3.0" or a plain one. What cannot be understood gives nothing.

namespace host {

/// Metadata of a picture file.
struct EmbeddedMetadata {
    QByteArray exif;
    QByteArray xmp;
    QByteArray iptc;
};

/// EXIF and IPTC of a TIFF, of which libvips reads none or only a part.
EmbeddedMetadata unreadInTiff(QIODevice& tiff);

/// EXIF and XMP of a JPEG XL, which libvips does not read.
EmbeddedMetadata unreadInJxl(QIODevice& jxl);

/// \a tiff with EXIF and IPTC, which libvips does not write or only in part.
QByteArray tiffWithMetadata(const QByteArray& tiff, const EmbeddedMetadata& metadata);

/// A JPEG XL with EXIF and XMP, which libvips does not write.
/// \param codestream a bare one.
/// \param resolution in pixels per inch; 0 when there is none.
QByteArray jxlWithMetadata(
    const QByteArray& codestream, const EmbeddedMetadata& metadata, int resolution);

/// \a iptc for a JPEG.
QByteArray iptcForJpeg(const QByteArray& iptc);

/// \a xmp without what is not true of a crop: its orientation and its thumbnails.
QByteArray xmpOfCrop(const QByteArray& xmp);

/// What they say of who made a picture and whose it is.
QByteArray copyrightInExif(const QByteArray& exif);
QByteArray copyrightInXmp(const QByteArray& xmp);
QByteArray copyrightInIptc(const QByteArray& iptc);

} // namespace host
