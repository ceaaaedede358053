#pragma once

#include <QByteArray>

/// \file
/// The parts of EXIF, XMP and IPTC that a crop may keep. Metadata that cannot be parsed is dropped.

namespace host {

/// \a xmp without the orientation and the thumbnails, which do not apply to a crop.
QByteArray xmpOfCrop(const QByteArray& xmp);

/// The entries that name a picture's author and copyright.
QByteArray copyrightInExif(const QByteArray& exif);
QByteArray copyrightInXmp(const QByteArray& xmp);
QByteArray copyrightInIptc(const QByteArray& iptc);

} // namespace host
