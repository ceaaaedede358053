#include "Pixels.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace host {

using vips::VImage;

namespace {

std::size_t bytesPerPixel(const VImage& image)
{
    return static_cast<std::size_t>(vips_format_sizeof(image.format()))
        * static_cast<std::size_t>(image.bands());
}

// Copies a blob: those of some decoders are freed together with their image.
void* copyBlob(VipsImage* /*from*/, const char* name, GValue* value, void* to)
{
    if (G_VALUE_HOLDS(value, VIPS_TYPE_BLOB)) {
        std::size_t bytes = 0;
        const void* const blob = vips_value_get_blob(value, &bytes);
        vips_image_set_blob_copy(static_cast<VipsImage*>(to), name, blob, bytes);
    }
    return nullptr;
}

// A progress callback of libvips.
void stopAfterDeadline(VipsImage* image, VipsProgress* /*progress*/, const Deadline* deadline)
{
    if (deadline->hasPassed())
        vips_image_set_kill(image, TRUE);
}

} // namespace

void check(int status)
{
    if (status != 0)
        throw vips::VError();
}

std::size_t bytesPerRow(const VImage& image)
{
    return bytesPerPixel(image) * static_cast<std::size_t>(image.width());
}

std::size_t bytesOf(const VImage& image)
{
    return bytesPerRow(image) * static_cast<std::size_t>(image.height());
}

uchar* addressOf(const VImage& image, int x, int y)
{
    return image.get_image()->data + bytesPerRow(image) * static_cast<std::size_t>(y)
        + bytesPerPixel(image) * static_cast<std::size_t>(x);
}

QRect boundsOf(const VImage& image) { return { 0, 0, image.width(), image.height() }; }

void setDeadline(const VImage& image, const Deadline& deadline)
{
    vips_image_set_progress(image.get_image(), TRUE);
    const auto forget = [](gpointer copy, GClosure*) { delete static_cast<Deadline*>(copy); };
    g_signal_connect_data(image.get_image(), "eval", reinterpret_cast<GCallback>(stopAfterDeadline),
        new Deadline(deadline), forget, GConnectFlags());
}

VImage inMemory(const VImage& image, const QRect& part, const Deadline& deadline)
{
    constexpr int rowsAtOnce = 16;
    VImage memory = VImage::new_memory();
    VipsImage* const raw = memory.get_image();
    std::array<VipsImage*, 2> inputs { image.get_image(), nullptr };
    check(vips_image_pipeline_array(raw, VIPS_DEMAND_STYLE_ANY, inputs.data()));
    vips_image_map(image.get_image(), copyBlob, raw);
    raw->progress_signal = nullptr; // it belongs to the other image and may be freed with it
    raw->Xsize = part.width();
    raw->Ysize = part.height();
    check(vips_image_write_prepare(raw));
    vips::VRegion region = image.region();
    for (int y = 0; y < part.height(); y += rowsAtOnce) {
        if (deadline.hasPassed())
            throw vips::VError("the time is up");
        const int rows = std::min(rowsAtOnce, part.height() - y);
        const VipsRect strip { part.left(), part.top() + y, part.width(), rows };
        region.prepare(&strip);
        for (int row = y; row < y + rows; ++row)
            std::memcpy(addressOf(memory, 0, row), region.addr(part.left(), part.top() + row),
                bytesPerRow(memory));
    }
    return memory;
}

} // namespace host
