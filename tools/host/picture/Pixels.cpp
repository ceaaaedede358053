#include "Pixels.h"

#include "../ImageMemory.h"

#include <QColorSpace>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

namespace host {

using vips::VImage;
using vips::VOption;

namespace {

void check(int status)
{
    if (status != 0)
        throw vips::VError();
}

std::size_t bytesPerPixel(const VImage& image)
{
    return static_cast<std::size_t>(vips_format_sizeof(image.format()))
        * static_cast<std::size_t>(image.bands());
}

std::size_t bytesPerRow(const VImage& image)
{
    return bytesPerPixel(image) * static_cast<std::size_t>(image.width());
}

// A pixel of an image in memory.
uchar* addressOf(const VImage& image, int x, int y)
{
    return image.get_image()->data + bytesPerRow(image) * static_cast<std::size_t>(y)
        + bytesPerPixel(image) * static_cast<std::size_t>(x);
}

bool isSrgb(const VImage& image)
{
    std::size_t bytes = 0;
    const void* const profile = image.get_blob(VIPS_META_ICC_NAME, &bytes);
    return QColorSpace::fromIccProfile(
               QByteArray(static_cast<const char*>(profile), static_cast<int>(bytes)))
        == QColorSpace(QColorSpace::SRgb);
}

// In sRGB by the profile of an image, or by that of usual inks; as it is where its profile is of no use.
VImage byProfile(const VImage& image)
try {
    VOption* const options = VImage::option()->set("embedded", true)->set("depth", 8);
    if (image.interpretation() == VIPS_INTERPRETATION_CMYK)
        options->set("input_profile", "cmyk");
    return image.icc_transform("srgb", options);
} catch (const vips::VError&) {
    return image;
}

// The format of Qt that has these pixels, if there is one.
QImage::Format formatOf(const VImage& image)
{
    const VipsInterpretation kind = image.interpretation();
    if (image.format() == VIPS_FORMAT_UCHAR && kind == VIPS_INTERPRETATION_B_W
        && image.bands() == 1)
        return QImage::Format_Grayscale8;
    if (image.format() != VIPS_FORMAT_UCHAR || kind != VIPS_INTERPRETATION_sRGB)
        return QImage::Format_Invalid;
    if (image.bands() == 3)
        return QImage::Format_RGB888;
    return image.bands() == 4 ? QImage::Format_RGBA8888 : QImage::Format_Invalid;
}

// A view of a part of pixels in memory.
QImage viewOf(const VImage& image, const QRect& part)
{
    return QImage(addressOf(image, part.left(), part.top()), part.width(), part.height(),
        static_cast<int>(bytesPerRow(image)), formatOf(image));
}

// What is not among the pixels of an image: its metadata, its resolution.
void* copyField(VipsImage* /*from*/, const char* name, GValue* value, void* to)
{
    static const std::array<const char*, 9> ofPixels { "width", "height", "bands", "format",
        "coding", "interpretation", "xoffset", "yoffset", "filename" };
    const bool isOfPixels = std::any_of(ofPixels.begin(), ofPixels.end(),
        [name](const char* other) { return std::strcmp(name, other) == 0; });
    if (!isOfPixels)
        vips_image_set(static_cast<VipsImage*>(to), name, value);
    return nullptr;
}

// Blobs of some decoders go with the image that they come with.
void* copyBlob(VipsImage* /*from*/, const char* name, GValue* value, void* to)
{
    if (G_VALUE_HOLDS(value, VIPS_TYPE_BLOB)) {
        std::size_t bytes = 0;
        const void* const blob = vips_value_get_blob(value, &bytes);
        vips_image_set_blob_copy(static_cast<VipsImage*>(to), name, blob, bytes);
    }
    return nullptr;
}

// The pixels of a QImage in one of the formats of formatOf().
VImage copyOf(const QImage& image, int bands)
{
    const auto rowBytes = static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(bands);
    VImage copy = VImage::new_memory();
    vips_image_init_fields(copy.get_image(), image.width(), image.height(), bands,
        VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
        bands == 1 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB, 1.0, 1.0);
    check(vips_image_write_prepare(copy.get_image()));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(addressOf(copy, 0, y), image.constScanLine(y), rowBytes);
    return copy;
}

VImage scaledByQt(const VImage& image, const QRect& part, const QSize& size)
{
    const QImage view = viewOf(image, part);
    const QImage scaled
        = held(held(view.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation))
                   .convertToFormat(view.format()));
    VImage result = copyOf(held(scaled), image.bands());
    vips_image_map(image.get_image(), copyField, result.get_image());
    result.get_image()->Xres = image.xres();
    result.get_image()->Yres = image.yres();
    return result;
}

VImage scaledByVips(const VImage& image, const QSize& size)
{
    const bool isTransparent = image.has_alpha();
    const VImage colours = isTransparent ? image.premultiply() : image;
    VImage scaled = colours.resize(static_cast<double>(size.width()) / image.width(),
        VImage::option()->set("vscale", static_cast<double>(size.height()) / image.height()));
    if (isTransparent)
        scaled = scaled.unpremultiply();
    return scaled.cast(image.format());
}

} // namespace

std::size_t bytesOf(const VImage& image)
{
    return bytesPerRow(image) * static_cast<std::size_t>(image.height());
}

bool hasProfile(const VImage& image) { return image.get_typeof(VIPS_META_ICC_NAME) != 0; }

QRect boundsOf(const VImage& image) { return { 0, 0, image.width(), image.height() }; }

VImage inMemory(const VImage& image, const QRect& part, const Deadline& deadline)
{
    constexpr int rowsAtOnce = 16;
    VImage memory = VImage::new_memory();
    VipsImage* const raw = memory.get_image();
    std::array<VipsImage*, 2> inputs { image.get_image(), nullptr };
    check(vips_image_pipeline_array(raw, VIPS_DEMAND_STYLE_ANY, inputs.data()));
    vips_image_map(image.get_image(), copyBlob, raw);
    raw->progress_signal = nullptr; // whose object goes with the image
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

VImage onMidGrey(const VImage& image)
{
    if (!image.has_alpha())
        return image;
    const bool hasTwoBytes = image.format() == VIPS_FORMAT_USHORT;
    const double midGrey = hasTwoBytes ? 128 * 257 : 128;
    return image.flatten(VImage::option()->set("background", midGrey));
}

VImage inSrgb(const VImage& image)
{
    const bool isCmyk = image.interpretation() == VIPS_INTERPRETATION_CMYK;
    VImage rgb = isCmyk || (hasProfile(image) && !isSrgb(image)) ? byProfile(image) : image;
    rgb = rgb.colourspace(VIPS_INTERPRETATION_sRGB).cast(VIPS_FORMAT_UCHAR).copy();
    rgb.remove(VIPS_META_ICC_NAME);
    return rgb;
}

VImage scaledTo(const VImage& image, const QRect& part, const QSize& size)
{
    const bool isScaled = part.size() != size;
    if (isScaled && formatOf(image) != QImage::Format_Invalid)
        return scaledByQt(image, part, size);
    const VImage cut = image.extract_area(part.left(), part.top(), part.width(), part.height());
    return isScaled ? scaledByVips(cut, size) : cut;
}

VImage withProfileOf(const VImage& other, const VImage& image)
{
    VImage result = image.copy();
    std::size_t bytes = 0;
    const void* const profile = other.get_blob(VIPS_META_ICC_NAME, &bytes);
    vips_image_set_blob_copy(result.get_image(), VIPS_META_ICC_NAME, profile, bytes);
    return result;
}

VImage oriented(const VImage& image, int orientation)
{
    struct Step {
        VipsAngle turn;
        bool isMirrored; // afterwards
    };
    if (orientation == 1)
        return image;
    static const std::array<Step, 8> steps { {
        { VIPS_ANGLE_D0, false },
        { VIPS_ANGLE_D0, true },
        { VIPS_ANGLE_D180, false },
        { VIPS_ANGLE_D180, true },
        { VIPS_ANGLE_D90, true },
        { VIPS_ANGLE_D90, false },
        { VIPS_ANGLE_D270, true },
        { VIPS_ANGLE_D270, false },
    } };
    const Step& step = steps.at(static_cast<std::size_t>(orientation - 1));
    VImage turned = step.turn == VIPS_ANGLE_D0 ? image : image.rot(step.turn);
    if (step.isMirrored)
        turned = turned.fliphor();
    turned = turned.copy();
    vips_autorot_remove_angle(turned.get_image());
    if (orientation > 4)
        std::swap(turned.get_image()->Xres, turned.get_image()->Yres);
    return turned;
}

bool isForQt(const VImage& image) { return formatOf(image) != QImage::Format_Invalid; }

QImage toQImage(const VImage& image)
{
    const Deadline never(std::numeric_limits<int>::max());
    const bool isInMemory = image.get_image()->dtype == VIPS_IMAGE_SETBUF;
    auto memory
        = std::make_unique<VImage>(isInMemory ? image : inMemory(image, boundsOf(image), never));
    const uchar* const pixels = addressOf(*memory, 0, 0);
    const auto release = [](void* pointer) { delete static_cast<VImage*>(pointer); };
    QImage view = held(QImage(pixels, memory->width(), memory->height(),
        static_cast<int>(bytesPerRow(*memory)), formatOf(*memory), release, memory.get()));
    static_cast<void>(memory.release()); // the view releases it
    return view;
}

VImage toVipsImage(const QImage& image)
{
    const bool isGrey = image.format() == QImage::Format_Grayscale8;
    const bool isTransparent = image.hasAlphaChannel();
    const QImage::Format format = isGrey ? QImage::Format_Grayscale8
        : isTransparent                  ? QImage::Format_RGBA8888
                                         : QImage::Format_RGB888;
    VImage copy = copyOf(held(image.convertToFormat(format)), isGrey ? 1 : isTransparent ? 4 : 3);
    constexpr double millimetresPerMetre = 1000;
    copy.get_image()->Xres = image.dotsPerMeterX() / millimetresPerMetre;
    copy.get_image()->Yres = image.dotsPerMeterY() / millimetresPerMetre;
    const QByteArray profile = image.colorSpace().iccProfile();
    if (!profile.isEmpty())
        vips_image_set_blob_copy(copy.get_image(), VIPS_META_ICC_NAME, profile.constData(),
            static_cast<std::size_t>(profile.size()));
    return copy;
}

} // namespace host
