#include "JpegEncoder.h"

#include <memory>
#include <turbojpeg.h>
#include <vips/vips8>

namespace host {

QByteArray encodedJpeg(const QImage& image, const JpegSettings& settings)
{
    const std::unique_ptr<void, decltype(&tjDestroy)> encoder(tjInitCompress(), &tjDestroy);
    const bool isGrey = image.format() == QImage::Format_Grayscale8;
    const int chroma = isGrey ? TJSAMP_GRAY : settings.hasHalfChroma ? TJSAMP_420 : TJSAMP_444;
    unsigned char* bytes = nullptr;
    unsigned long count = 0;
    const int status = tjCompress2(encoder.get(), image.constBits(), image.width(),
        image.bytesPerLine(), image.height(), isGrey ? TJPF_GRAY : TJPF_RGB, &bytes, &count, chroma,
        settings.quality, settings.isProgressive ? TJFLAG_PROGRESSIVE : 0);
    const std::unique_ptr<unsigned char, decltype(&tjFree)> released(bytes, &tjFree);
    if (status != 0)
        throw vips::VError("the JPEG cannot be encoded");
    return QByteArray(reinterpret_cast<const char*>(bytes), static_cast<int>(count));
}

} // namespace host
