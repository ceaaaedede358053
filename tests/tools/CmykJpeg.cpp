#include "CmykJpeg.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

#include <jpeglib.h>

namespace samples {

QByteArray cmykJpeg(const QSize& size, const QByteArray& profile)
{
    jpeg_compress_struct encoder {};
    jpeg_error_mgr errors {};
    encoder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&encoder);
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&encoder, &bytes, &length);
    encoder.image_width = static_cast<JDIMENSION>(size.width());
    encoder.image_height = static_cast<JDIMENSION>(size.height());
    encoder.input_components = 4;
    encoder.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&encoder);
    jpeg_start_compress(&encoder, TRUE);
    const QByteArray segment = QByteArray("ICC_PROFILE\0\1\1", 14) + profile;
    jpeg_write_marker(&encoder, JPEG_APP0 + 2, reinterpret_cast<const JOCTET*>(segment.constData()),
        static_cast<unsigned>(segment.size()));
    std::vector<JSAMPLE> row(static_cast<std::size_t>(size.width()) * 4, 200);
    JSAMPROW samples = row.data();
    while (encoder.next_scanline < encoder.image_height)
        jpeg_write_scanlines(&encoder, &samples, 1);
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    QByteArray jpeg(reinterpret_cast<const char*>(bytes), static_cast<int>(length));
    std::free(bytes); // NOLINT(cppcoreguidelines-no-malloc): libjpeg took it from malloc
    return jpeg;
}

} // namespace samples
