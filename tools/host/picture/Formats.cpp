#include "Formats.h"

#include <cstring>

namespace host {

const QVector<Format>& formatsRead()
{
    const auto list = [](const char* suffixes) {
        return QString::fromLatin1(suffixes).split(QLatin1Char(' '));
    };
    static const QVector<Format> formats {
        { "VipsForeignLoadJpeg", "jpeg", list("jpg jpeg jpe"), 8 },
        { "VipsForeignLoadPng", "png", list("png"), 1 },
        { "VipsForeignLoadWebp", "webp", list("webp"), 1 },
        { "VipsForeignLoadTiff", "tiff", list("tif tiff"), 1 },
        { "VipsForeignLoadHeif", "heic", list("heic heif avif"), 1 },
        { "VipsForeignLoadJxl", "jxl", list("jxl"), 1 },
        { "VipsForeignLoadNsgif", "gif", list("gif"), 1 },
        { "VipsForeignLoadPpm", "ppm", list("pbm pgm ppm pnm"), 1 },
    };
    return formats;
}

QString nameOf(const Format& format, const vips::VImage& header)
{
    constexpr auto compression = "heif-compression";
    const bool isAvif = header.get_typeof(compression) != 0
        && std::strcmp(header.get_string(compression), "av1") == 0;
    return QString::fromLatin1(isAvif ? "avif" : format.name);
}

QStringList pictureSuffixes()
{
    QStringList suffixes { QStringLiteral("bmp") };
    for (const Format& format : formatsRead())
        suffixes += format.suffixes;
    return suffixes;
}

} // namespace host
