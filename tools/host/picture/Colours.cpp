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

VImage onGrey(const VImage& image, int level)
{
    if (!image.has_alpha())
        return image;
    const int unit = image.format() == VIPS_FORMAT_USHORT ? 257 : 1;
    return image.flatten(VImage::option()->set("background", static_cast<double>(level * unit)));
}

VImage inSrgb(const VImage& image)
{
    const bool isCmyk = image.interpretation() == VIPS_INTERPRETATION_CMYK;
    VImage rgb = isCmyk || hasOtherColours(image) ? byProfile(image) : image;
    rgb = rgb.colourspace(VIPS_INTERPRETATION_sRGB).cast(VIPS_FORMAT_UCHAR).copy();
    rgb.remove(VIPS_META_ICC_NAME);
    return rgb;
}

} // namespace host
