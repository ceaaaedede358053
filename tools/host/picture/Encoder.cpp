#include "Encoder.h"

#include "Bitmap.h"
#include "Colours.h"
#include "Engine.h"
#include "QtPixels.h"

#include <QVector>

#include <algorithm>
#include <cstring>
#include <memory>

namespace host {

using vips::VImage;
using vips::VOption;

namespace {

// What a format is written with.
struct Saver {
    QStringList suffixes; // of its files, in lower case
    const char* suffix; // that libvips knows it by
    bool holdsInks;
    bool holdsOpacity;
    VOption* (*options)(const VImage& picture);
};

// Well above the codecs' own defaults, so that a crop does not look worse than its source.
constexpr int photographQuality = 93;

bool hasFullChroma(const VImage& picture)
{
    constexpr auto chroma = "jpeg-chroma-subsample";
    return picture.get_typeof(chroma) != 0 && std::strcmp(picture.get_string(chroma), "4:4:4") == 0;
}

VOption* jpegOptions(const VImage& picture)
{
    return VImage::option()
        ->set("Q", photographQuality)
        ->set("subsample_mode",
            hasFullChroma(picture) ? VIPS_FOREIGN_SUBSAMPLE_OFF : VIPS_FOREIGN_SUBSAMPLE_ON);
}

VOption* pngOptions(const VImage& /*picture*/)
{
    return VImage::option()->set("filter", VIPS_FOREIGN_PNG_FILTER_ALL);
}

VOption* webpOptions(const VImage& /*picture*/)
{
    return VImage::option()->set("Q", photographQuality);
}

VOption* tiffOptions(const VImage& /*picture*/)
{
    return VImage::option()
        ->set("compression", VIPS_FOREIGN_TIFF_COMPRESSION_DEFLATE)
        ->set("predictor", VIPS_FOREIGN_TIFF_PREDICTOR_HORIZONTAL);
}

VOption* noOptions(const VImage& /*picture*/) { return VImage::option(); }

const QVector<Saver>& savers()
{
    static const QVector<Saver> all {
        { { QStringLiteral("jpg"), QStringLiteral("jpeg") }, ".jpg", true, false, jpegOptions },
        { { QStringLiteral("png") }, ".png", false, true, pngOptions },
        { { QStringLiteral("webp") }, ".webp", false, true, webpOptions },
        { { QStringLiteral("tif"), QStringLiteral("tiff") }, ".tif", true, true, tiffOptions },
        { { QStringLiteral("ppm") }, ".ppm", false, false, noOptions },
    };
    return all;
}

const Saver* saverFor(const QString& suffix)
{
    const auto* const found = std::find_if(savers().begin(), savers().end(),
        [&](const Saver& saver) { return saver.suffixes.contains(suffix.toLower()); });
    return found == savers().end() ? nullptr : found;
}

bool isBitmapSuffix(const QString& suffix)
{
    return suffix.compare(QLatin1String("bmp"), Qt::CaseInsensitive) == 0;
}

} // namespace

bool isWritten(const QString& suffix)
{
    return isBitmapSuffix(suffix) || saverFor(suffix) != nullptr;
}

QByteArray encoded(const VImage& picture, const QString& suffix)
try {
    constexpr int white = 255;
    if (isBitmapSuffix(suffix))
        return encodedBitmap(toQImage(inSrgb(onGrey(picture, white))));
    const Saver& saver = *saverFor(suffix);
    const bool needsColours
        = picture.interpretation() == VIPS_INTERPRETATION_CMYK && !saver.holdsInks;
    const VImage opaque = saver.holdsOpacity ? picture : onGrey(picture, white);
    const VImage colours = needsColours ? inSrgb(opaque) : opaque;
    void* bytes = nullptr;
    std::size_t count = 0;
    vips_error_clear();
    colours.write_to_buffer(saver.suffix, &bytes, &count, saver.options(colours));
    const std::unique_ptr<void, decltype(&g_free)> released(bytes, g_free);
    return QByteArray(static_cast<const char*>(bytes), static_cast<int>(count));
} catch (const vips::VError& error) {
    refuseLackOfMeans(error);
    throw;
}

} // namespace host
