#include "Colours.h"

#include <QByteArray>
#include <QColorSpace>

namespace host {

using vips::VImage;
using vips::VOption;

namespace {

bool isSrgb(const VImage& image)
{
    std::size_t bytes = 0;
    const void* const profile = image.get_blob(VIPS_META_ICC_NAME, &bytes);
    return QColorSpace::fromIccProfile(
               QByteArray(static_cast<const char*>(profile), static_cast<int>(bytes)))
        == QColorSpace(QColorSpace::SRgb);
}

// Converts to sRGB by the embedded profile, or for CMYK without one by a common profile. Returns \a image unchanged
// when the profile cannot be used.
VImage byProfile(const VImage& image, int depth)
try {
    VOption* const options = VImage::option()->set("embedded", true)->set("depth", depth);
    if (image.interpretation() == VIPS_INTERPRETATION_CMYK)
        options->set("input_profile", "cmyk");
    return image.icc_transform("srgb", options);
} catch (const vips::VError&) {
    return image;
}

VImage toSrgb(const VImage& image, int depth)
{
    const bool isCmyk = image.interpretation() == VIPS_INTERPRETATION_CMYK;
    VImage result = isCmyk || hasOtherColours(image) ? byProfile(image, depth) : image.copy();
    result.remove(VIPS_META_ICC_NAME);
    return result;
}

} // namespace

bool hasOtherColours(const VImage& image)
{
    return image.get_typeof(VIPS_META_ICC_NAME) != 0 && !isSrgb(image);
}

VImage withProfileOf(const VImage& other, const VImage& image)
{
    VImage result = image.copy();
    std::size_t bytes = 0;
    const void* const profile = other.get_blob(VIPS_META_ICC_NAME, &bytes);
    vips_image_set_blob_copy(result.get_image(), VIPS_META_ICC_NAME, profile, bytes);
    return result;
}

std::vector<double> pixelOf(const VImage& image, const QColor& colour)
{
    const bool isDeep = image.format() == VIPS_FORMAT_USHORT;
    const double unit = isDeep ? 257 : 1;
    const bool isGrey = image.bands() < 3;
    if (isGrey)
        return { qGray(colour.rgb()) * unit };
    std::vector<double> rgb { colour.red() * unit, colour.green() * unit, colour.blue() * unit };
    const bool isCmyk = image.interpretation() == VIPS_INTERPRETATION_CMYK;
    if (!isCmyk && !hasOtherColours(image))
        return rgb;
    const VImage pixel = VImage::black(1, 1).new_from_image(
        { double(colour.red()), double(colour.green()), double(colour.blue()) });
    const VImage srgb
        = pixel.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    try {
        const VImage exported = withProfileOf(image, srgb.colourspace(VIPS_INTERPRETATION_LAB))
                                    .icc_export(VImage::option()->set("depth", isDeep ? 16 : 8));
        return exported.getpoint(0, 0);
    } catch (const vips::VError&) { // the profile cannot be used
        return isCmyk ? srgb.colourspace(VIPS_INTERPRETATION_CMYK).getpoint(0, 0) : rgb;
    }
}

VImage withChannelsFor(const QColor& colour, const VImage& image)
{
    if (image.bands() > 2 || colour.saturation() <= 0)
        return image;
    const VImage srgb = inSrgbWithDepth(image); // a grey profile does not apply to colours
    return srgb.colourspace(image.format() == VIPS_FORMAT_USHORT ? VIPS_INTERPRETATION_RGB16
                                                                 : VIPS_INTERPRETATION_sRGB);
}

VImage on(const QColor& background, const VImage& image)
{
    if (!image.has_alpha())
        return image;
    const VImage picture = withChannelsFor(background, image);
    return picture.flatten(VImage::option()->set("background", pixelOf(picture, background)));
}

VImage inSrgb(const VImage& image)
{
    return toSrgb(image, 8).colourspace(VIPS_INTERPRETATION_sRGB).cast(VIPS_FORMAT_UCHAR);
}

VImage inSrgbWithDepth(const VImage& image)
{
    return toSrgb(image, image.format() == VIPS_FORMAT_USHORT ? 16 : 8);
}

} // namespace host
