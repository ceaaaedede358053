#include "OddJpegs.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include <jpeglib.h>

namespace samples {

namespace {

// A JPEG whose samples are all 200.
QByteArray encodedJpeg(const QSize& size, int channels, J_COLOR_SPACE colours,
    const std::function<void(jpeg_compress_struct&)>& prepare,
    const std::function<void(jpeg_compress_struct&)>& addMarkers)
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
    encoder.input_components = channels;
    encoder.in_color_space = colours;
    jpeg_set_defaults(&encoder);
    prepare(encoder);
    jpeg_start_compress(&encoder, TRUE);
    addMarkers(encoder);
    std::vector<JSAMPLE> row(
        static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(channels), 200);
    JSAMPROW samples = row.data();
    while (encoder.next_scanline < encoder.image_height)
        jpeg_write_scanlines(&encoder, &samples, 1);
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    QByteArray jpeg(reinterpret_cast<const char*>(bytes), static_cast<int>(length));
    std::free(bytes); // NOLINT(cppcoreguidelines-no-malloc): libjpeg took it from malloc
    return jpeg;
}

void doNothing(jpeg_compress_struct& /*encoder*/) { }

} // namespace

QByteArray cmykJpeg(const QSize& size, const QByteArray& profile)
{
    const auto addProfile = [&](jpeg_compress_struct& encoder) {
        const QByteArray segment = QByteArray("ICC_PROFILE\0\1\1", 14) + profile;
        jpeg_write_marker(&encoder, JPEG_APP0 + 2,
            reinterpret_cast<const JOCTET*>(segment.constData()),
            static_cast<unsigned>(segment.size()));
    };
    return encodedJpeg(size, 4, JCS_CMYK, doNothing, addProfile);
}

QByteArray jpegOfScans(const QSize& size, int scans)
{
    // The means of the blocks in one scan, then each of the 63 frequencies by itself, bit by bit.
    std::vector<jpeg_scan_info> script { { 1, { 0 }, 0, 0, 0, 0 } };
    constexpr int frequencies = 63;
    for (int high = 3; high > 0; --high) {
        for (int frequency = 1; frequency <= frequencies; ++frequency)
            script.push_back({ 1, { 0 }, frequency, frequency, high == 3 ? 0 : high, high - 1 });
    }
    const auto setScript = [&](jpeg_compress_struct& encoder) {
        encoder.scan_info = script.data();
        encoder.num_scans = scans;
    };
    return encodedJpeg(size, 1, JCS_GRAYSCALE, setScript, doNothing);
}

} // namespace samples
