#pragma once

#include <QByteArray>
#include <QImage>

namespace host {

/// How a JPEG is encoded.
struct JpegSettings {
    int quality; ///< 1 to 100
    bool hasHalfChroma;
    bool isProgressive;
};

/// \a image, grey or of three channels of 8 bits, as a JPEG without metadata. libvips encodes in threads of its own,
/// for which workers on all cores wait; this takes the caller's.
/// \throws vips::VError when it is too large for a JPEG.
QByteArray encodedJpeg(const QImage& image, const JpegSettings& settings);

} // namespace host
