#include "Formats.h"

#include <algorithm>

namespace host {

// Efforts are those beyond which files hardly get smaller. Qualities are well above the defaults of the codecs, so that
// a crop does not look worse than its source.
const QVector<Format>& formats()
{
    const auto list
        = [](const char* words) { return QString::fromLatin1(words).split(QLatin1Char(' ')); };
    const Abilities transparent = Ability::Opacity | Ability::Profile;
    static const QVector<Format> all {
        { "jpeg", list("jpg jpeg jpe"), "VipsForeignLoadJpeg", 8, ".jpg", 93,
            Ability::Inks | Ability::FullChroma | Ability::Progression | Ability::Profile },
        { "png", list("png"), "VipsForeignLoadPng", 1, ".png[filter=all]", 0,
            transparent | Ability::Progression },
        { "webp", list("webp"), "VipsForeignLoadWebp", 1, ".webp", 93,
            transparent | Ability::Frames | Ability::WholeDecoding },
        { "tiff", list("tif tiff"), "VipsForeignLoadTiff", 1,
            ".tif[compression=deflate,predictor=horizontal]", 0, transparent | Ability::Inks },
        { "avif", list("avif"), "VipsForeignLoadHeif", 1, ".avif[compression=av1,effort=2]", 75,
            transparent | Ability::FullChroma | Ability::WholeDecoding },
        { "heic", list("heic heif"), "VipsForeignLoadHeif", 1, ".heic[compression=hevc]", 75,
            transparent | Ability::FullChroma | Ability::WholeDecoding },
        { "jxl", list("jxl"), "VipsForeignLoadJxl", 1, ".jxl[effort=4]", 93,
            transparent | Ability::WholeDecoding },
        { "gif", list("gif"), "VipsForeignLoadNsgif", 1, ".gif", 0,
            Ability::Opacity | Ability::Frames | Ability::Progression | Ability::WholeDecoding },
        // "strip" omits a comment with the time of writing.
        { "ppm", list("ppm pnm"), "VipsForeignLoadPpm", 1, ".ppm[strip]" },
        { "pgm", list("pgm"), "VipsForeignLoadPpm", 1, ".pgm[strip]" },
        { "pbm", list("pbm"), "VipsForeignLoadPpm", 1, "" },
        { "bmp", list("bmp"), nullptr },
    };
    return all;
}

bool isWritten(const Format& format) { return format.saver == nullptr || *format.saver != '\0'; }

const Format* formatCalled(const QString& suffix)
{
    const auto* const found = std::find_if(formats().begin(), formats().end(),
        [&](const Format& format) { return format.suffixes.contains(suffix.toLower()); });
    return found == formats().end() ? nullptr : found;
}

} // namespace host
