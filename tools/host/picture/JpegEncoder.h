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

/// Encodes \a image, with one or three channels of 8 bits, as a JPEG without metadata. This runs in the caller's
/// thread: libvips would start threads of its own, which compete with the workers that keep all cores busy.
/// \throws vips::VError when the image is too large for a JPEG.
QByteArray encodedJpeg(const QImage& image, const JpegSettings& settings);

} // namespace host
