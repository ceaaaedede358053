#include "Encoder.h"

#include "Bitmap.h"
#include "Colours.h"
#include "Engine.h"
#include "Metadata.h"
#include "Pixels.h"
#include "QtPixels.h"

#include <cstring>
#include <memory>
#include <string>

namespace host {

using vips::VImage;
using vips::VOption;

namespace {

// Whether the colours of the file that a picture has been read from had half the resolution of its brightness.
bool hasHalfChroma(const VImage& picture)
{
    if (picture.get_typeof(VIPS_META_LOADER) == 0)
        return false;
    const std::string loader = picture.get_string(VIPS_META_LOADER);
    constexpr auto chroma = "jpeg-chroma-subsample";
    if (picture.get_typeof(chroma) != 0)
        return std::strcmp(picture.get_string(chroma), "4:4:4") != 0;
    return loader.rfind("webp", 0) == 0 || loader.rfind("heif", 0) == 0;
}

VOption* optionsFor(const VImage& picture, const Format& format, const WritingRules& rules)
{
    VOption* const options = VImage::option();
    if (format.quality > 0)
        options->set("Q", rules.quality > 0 ? rules.quality : format.quality);
    if (format.abilities.testFlag(Ability::FullChroma)) {
        const bool isHalved = rules.chroma == Chroma::OfSource ? hasHalfChroma(picture)
                                                               : rules.chroma == Chroma::Half;
        options->set(
            "subsample_mode", isHalved ? VIPS_FOREIGN_SUBSAMPLE_ON : VIPS_FOREIGN_SUBSAMPLE_OFF);
    }
    if (format.abilities.testFlag(Ability::Progression))
        options->set("interlace", rules.isProgressive);
    return options;
}

// The first frame where a format holds no others.
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
    const VImage opaque
        = format.abilities.testFlag(Ability::Opacity) ? picture : on(rules.background, picture);
    const bool needsColours = opaque.interpretation() == VIPS_INTERPRETATION_CMYK
        && !format.abilities.testFlag(Ability::Inks);
    return rules.isInSrgb || needsColours ? inSrgbWithDepth(opaque) : opaque;
}

} // namespace

QByteArray encoded(const VImage& picture, const Format& format, const WritingRules& rules,
    const Deadline& deadline)
try {
    const VImage colours = withColoursFor(withFramesFor(picture, format), format, rules);
    if (format.saver == nullptr)
        return encodedBitmap(toQImage(inSrgb(colours)));
    const VImage kept = withMetadata(colours, rules.metadata);
    const VImage image = withIptcFor(kept, format);
    endLate(image, deadline);
    void* bytes = nullptr;
    std::size_t count = 0;
    vips_error_clear();
    image.write_to_buffer(format.saver, &bytes, &count, optionsFor(image, format, rules));
    const std::unique_ptr<void, decltype(&g_free)> released(bytes, g_free);
    const QByteArray file(static_cast<const char*>(bytes), static_cast<int>(count));
    return withMissingMetadata(file, kept, format);
} catch (const vips::VError& error) {
    refuseLackOfMeans(error);
    throw;
}

bool isForWantOfEncoder(const vips::VError& error)
{
    const std::string text = error.what();
    return text.find("Unsupported") != std::string::npos
        || text.find("not a known") != std::string::npos;
}

} // namespace host
