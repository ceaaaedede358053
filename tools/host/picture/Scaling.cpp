#include "Scaling.h"

#include "Colours.h"
#include "ImageMemory.h"
#include "QtPixels.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace host {

using vips::VImage;

namespace {

// Copies a field that is metadata, not a property of the pixels.
void* copyField(VipsImage* /*from*/, const char* name, GValue* value, void* to)
{
    static const std::array<const char*, 11> pixelFields { "width", "height", "bands", "format",
        "coding", "interpretation", "xoffset", "yoffset", "xres", "yres", "filename" };
    const bool isPixelField = std::any_of(pixelFields.begin(), pixelFields.end(),
        [name](const char* other) { return std::strcmp(name, other) == 0; });
    if (!isPixelField)
        vips_image_set(static_cast<VipsImage*>(to), name, value);
    return nullptr;
}

VImage scaledByQt(const VImage& image, const QRect& part, const QSize& size)
{
    const QImage view = viewOf(image, part);
    const QImage scaled
        = notNull(notNull(view.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation))
                      .convertToFormat(view.format()));
    VImage result = toVipsImage(scaled);
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

VImage scaledTo(const VImage& image, const QRect& part, const QSize& size)
{
    const bool isScaled = part.size() != size;
    if (isScaled && hasQtFormat(image))
        return scaledByQt(image, part, size);
    const VImage cut = image.extract_area(part.left(), part.top(), part.width(), part.height());
    return isScaled ? scaledByVips(cut, size) : cut;
}

VImage padded(const VImage& image, const QSize& size, const QColor& background)
{
    const bool isDeep = image.format() == VIPS_FORMAT_USHORT;
    const double unit = isDeep ? 257 : 1;
    const bool isTransparent = image.has_alpha() || background.alpha() < 255;
    VImage picture = withChannelsFor(background, image);
    if (isTransparent && !picture.has_alpha())
        picture = picture.bandjoin_const({ 255 * unit });
    std::vector<double> pixel = pixelOf(picture, background);
    if (isTransparent)
        pixel.push_back(background.alpha() * unit);
    return picture.gravity(VIPS_COMPASS_DIRECTION_CENTRE, size.width(), size.height(),
        VImage::option()->set("extend", VIPS_EXTEND_BACKGROUND)->set("background", pixel));
}

} // namespace host
