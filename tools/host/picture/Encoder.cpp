#include "Encoder.h"

#include "Bitmap.h"
#include "Colours.h"
#include "Engine.h"
#include "JpegEncoder.h"
#include "Metadata.h"
#include "Pixels.h"
#include "QtPixels.h"

#include <cstring>
#include <limits>
#include <memory>
#include <string>

namespace host {

using vips::VImage;
using vips::VOption;

namespace {

// Whether the file that a picture was read from has chroma at half resolution.
bool sourceHasHalfChroma(const VImage& picture)
{
    if (picture.get_typeof(VIPS_META_LOADER) == 0)
        return false;
    const std::string loader = picture.get_string(VIPS_META_LOADER);
    constexpr auto chroma = "jpeg-chroma-subsample";
    if (picture.get_typeof(chroma) != 0)
        return std::strcmp(picture.get_string(chroma), "4:4:4") != 0;
    return loader.rfind("webp", 0) == 0 || loader.rfind("heif", 0) == 0;
}

bool hasHalfChroma(const VImage& picture, const WritingRules& rules)
{
    return rules.chroma == Chroma::OfSource ? sourceHasHalfChroma(picture)
                                            : rules.chroma == Chroma::Half;
}

int qualityOf(const Format& format, const WritingRules& rules)
{
    return rules.quality > 0 ? rules.quality : format.quality;
}

bool isJpeg(const Format& format) { return std::strcmp(format.name, "jpeg") == 0; }

VOption* optionsFor(const VImage& picture, const Format& format, const WritingRules& rules)
{
    VOption* const options = VImage::option();
    if (format.quality > 0)
        options->set("Q", qualityOf(format, rules));
    if (format.abilities.testFlag(Ability::FullChroma))
        options->set("subsample_mode",
            hasHalfChroma(picture, rules) ? VIPS_FOREIGN_SUBSAMPLE_ON : VIPS_FOREIGN_SUBSAMPLE_OFF);
    if (format.abilities.testFlag(Ability::Progression))
        options->set("interlace", rules.isProgressive);
    if (isJpeg(format))
        options->set("strip", true); // withMissingMetadata() adds the metadata
    return options;
}

QByteArray encodedByVips(
    const VImage& image, const Format& format, const WritingRules& rules, const Deadline& deadline)
{
    setDeadline(image, deadline);
    void* bytes = nullptr;
    std::size_t count = 0;
    vips_error_clear();
    image.write_to_buffer(format.saver, &bytes, &count, optionsFor(image, format, rules));
    const std::unique_ptr<void, decltype(&g_free)> released(bytes, g_free);
    if (count > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw vips::VError("the file is too large");
    return QByteArray(static_cast<const char*>(bytes), static_cast<int>(count));
}

// \a image with 8 bits per channel, the most that JPEG has.
VImage withEightBits(const VImage& image)
{
    if (image.format() == VIPS_FORMAT_UCHAR)
        return image;
    return image.colourspace(
        image.bands() < 3 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB);
}

// Whether \a image may be encoded by TurboJPEG, which needs all pixels in memory; libvips needs only a few rows.
bool fitsTurboJpeg(const VImage& image)
{
    constexpr std::size_t mostBytes = std::size_t { 12 } << 20U;
    return hasQtFormat(image) && bytesOf(image) <= mostBytes;
}

// \a picture, or its first frame when the format does not support animations.
VImage withFramesFor(const VImage& picture, const Format& format)
{
    const bool isAnimation = vips_image_get_n_pages(picture.get_image()) > 1
        && vips_image_get_page_height(picture.get_image()) < picture.height();
    if (!isAnimation || format.abilities.testFlag(Ability::Frames))
        return picture;
    VImage first
        = picture
              .extract_area(0, 0, picture.width(), vips_image_get_page_height(picture.get_image()))
              .copy();
    first.remove(VIPS_META_PAGE_HEIGHT);
    first.remove(VIPS_META_N_PAGES);
    return first;
}

VImage withColoursFor(const VImage& picture, const Format& format, const WritingRules& rules)
{
    const QColor background = rules.background.alpha() == 0 ? Qt::white : rules.background;
    const VImage opaque
        = format.abilities.testFlag(Ability::Opacity) ? picture : on(background, picture);
    const bool isCmyk = opaque.interpretation() == VIPS_INTERPRETATION_CMYK;
    const bool needsColours = (isCmyk && !format.abilities.testFlag(Ability::Inks))
        || (hasOtherColours(opaque) && !format.abilities.testFlag(Ability::Profile));
    return rules.isInSrgb || needsColours ? inSrgbWithDepth(opaque) : opaque;
}

} // namespace

QByteArray encoded(const VImage& picture, const Format& format, const WritingRules& rules,
    const Deadline& deadline)
try {
    const VImage colours = withColoursFor(withFramesFor(picture, format), format, rules);
    if (format.saver == nullptr)
        return encodedBitmap(toQImage(inSrgb(colours)));
    const VImage image = withMetadata(colours, rules.metadata);
    const VImage shallow = isJpeg(format) ? withEightBits(image) : image;
    const QByteArray file = isJpeg(format) && fitsTurboJpeg(shallow)
        ? encodedJpeg(toQImage(shallow),
            { qualityOf(format, rules), hasHalfChroma(image, rules), rules.isProgressive })
        : encodedByVips(shallow, format, rules, deadline);
    return withMissingMetadata(file, image, format);
} catch (const vips::VError& error) {
    throwIfOutOfResources(error);
    throw;
}

bool isMissingEncoder(const vips::VError& error)
{
    const std::string text = error.what();
    return text.find("Unsupported") != std::string::npos
        || text.find("not a known") != std::string::npos;
}

} // namespace host
