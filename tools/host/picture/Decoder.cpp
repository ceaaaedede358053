#include "Decoder.h"

#include "Bitmap.h"
#include "Colours.h"
#include "Engine.h"
#include "Formats.h"
#include "Limits.h"
#include "Metadata.h"
#include "PictureHeader.h"
#include "PictureSource.h"
#include "Pixels.h"
#include "host/FileName.h"
#include "host/HostError.h"

#include <algorithm>
#include <cstring>

namespace host {

using vips::VImage;
using vips::VOption;

namespace {

[[noreturn]] void throwUnknown(const QString& path)
{
    throw HostError(ExitCode::UnreadableInput, path,
        QStringLiteral("not a picture in a known format"),
        QStringLiteral("convert it to PNG or JPEG"));
}

} // namespace

Decoder::Decoder(const QString& path, const ReadingRules& readingRules)
    : name(isStandardStream(path) ? QStringLiteral("standard input") : path)
    , rules(readingRules)
    , timeLimit(readingRules.mostSeconds)
    , device(openPicture(path, readingRules.mostBytes))
{
    startEngine();
    if (isBitmap(*device))
        readBitmap();
    else
        readHeader();
}

void Decoder::readHeader()
{
    const Format* const format = formatOf(sourceOf(*device, timeLimit));
    if (timeLimit.hasPassed())
        throw tooSlow(name, rules.mostSeconds);
    if (format == nullptr)
        throwUnknown(name);
    formatName = QString::fromLatin1(format->name);
    if (formatName == QLatin1String("png"))
        refuseManyTexts(name, *device);
    if (formatName == QLatin1String("tiff"))
        unread = unreadInTiff(*device);
    if (formatName == QLatin1String("jxl"))
        unread = unreadInJxl(*device);
    decodingShrink = format->mostShrink;
    headerImage = readTolerantly([this] { return opened(1); });
    if (formatName == QLatin1String("avif") && !isAvif(headerImage))
        formatName = QStringLiteral("heic");
    if (format->abilities.testFlag(Ability::Frames) && rules.areAllFramesRead) {
        frames = vips_image_get_n_pages(headerImage.get_image());
        headerImage = readTolerantly([this] { return opened(1); });
    }
    const QSize size = boundsOf(headerImage).size();
    pixelWeight = bytesPerLevel(headerImage);
    const bool isWhole = isDecodedWhole(headerImage, *format);
    if (isWhole)
        pixelWeight *= 2;
    refuseTooMany(size, isWhole ? pixelWeight : 1);
    refuseMuchMetadata(name, headerImage);
    if (isMultiScan(headerImage))
        refuseManyScans(name, *device);
}

void Decoder::readBitmap()
{
    formatName = QStringLiteral("bmp");
    const QSize size = bitmapSize(*device);
    if (size.isEmpty())
        throwUnknown(name);
    pixelWeight = 2; // one copy in Qt, one in libvips
    refuseTooMany(size, pixelWeight);
    bool isWhole = true;
    bitmap = host::readBitmap(*device, isWhole);
    if (!bitmap || (!isWhole && rules.onBroken == OnBroken::Error))
        throwDamaged();
    headerImage = *bitmap;
    if (!isWhole) {
        failOn = VIPS_FAIL_ON_NONE;
        noteDamage();
    }
}

// Each pixel counts \a weight times.
void Decoder::refuseTooMany(const QSize& size, int weight) const
{
    const qint64 counted = qint64 { size.width() } * size.height() * weight;
    if (counted > rules.mostPixels)
        throw tooManyPixels(name,
            QStringLiteral("%1 x %2 pixels are too many").arg(size.width()).arg(size.height()),
            counted);
}

VImage Decoder::decode(int shrink, const QRect& area, bool isOpaque)
{
    return readTolerantly([&] {
        const int byDecoder = std::min(shrink, decodingShrink);
        VImage image = opened(byDecoder);
        if (isOpaque)
            image = on(midGrey, image);
        const int rest = shrink / byDecoder;
        if (rest > 1)
            image = image.shrink(rest, rest);
        const QRect part(QPoint(area.left() / shrink, area.top() / shrink),
            QPoint(area.right() / shrink, area.bottom() / shrink));
        refuseTooMany(part.size(), bytesPerLevel(image));
        return inMemory(image, part & boundsOf(image), timeLimit);
    });
}

VImage Decoder::opened(int shrink)
{
    if (bitmap)
        return *bitmap;
    vips_error_clear();
    VOption* const options
        = VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL)->set("fail_on", failOn);
    if (shrink > 1)
        options->set("shrink", shrink);
    if (frames > 1)
        options->set("n", frames);
    VImage image = VImage::new_from_source(sourceOf(*device, timeLimit), "", options);
    image = withUnread(image, unread);
    setDeadline(image, timeLimit);
    return image;
}

VImage Decoder::readTolerantly(const std::function<VImage()>& read)
{
    for (;;) {
        try {
            VImage image = read();
            noteDamage();
            return image;
        } catch (const vips::VError& error) {
            throwIfOutOfResources(error);
            if (timeLimit.hasPassed())
                throw tooSlow(name, rules.mostSeconds);
            refuseManyFaults(error);
            if (!tolerateMore())
                throwDamaged();
        }
    }
}

// Lowers the strictness by one step, if the rules allow it. Mere warnings of a decoder are always tolerated.
bool Decoder::tolerateMore()
{
    if (failOn == VIPS_FAIL_ON_WARNING) {
        failOn = VIPS_FAIL_ON_ERROR;
        return true;
    }
    const bool mayTolerateAll = failOn == VIPS_FAIL_ON_ERROR && rules.onBroken == OnBroken::Warn;
    if (mayTolerateAll)
        failOn = VIPS_FAIL_ON_NONE;
    return mayTolerateAll;
}

void Decoder::noteDamage()
{
    if (failOn == VIPS_FAIL_ON_ERROR)
        warn(QStringLiteral("its decoder reports errors in the file, which may be visible"));
    if (failOn == VIPS_FAIL_ON_NONE)
        warn(QStringLiteral("damaged or truncated: the missing part is blank"));
}

void Decoder::warn(const QString& note)
{
    if (!notes.contains(note))
        notes.append(note);
}

// The decoder gives up after too many errors, for example on a JPEG of thousands of scans.
void Decoder::refuseManyFaults(const vips::VError& error) const
{
    if (std::strstr(error.what(), "warnings") != nullptr)
        throw HostError(ExitCode::UnreadableInput, name,
            QStringLiteral("its decoder gave up after a hundred errors"),
            QStringLiteral("get a complete copy"));
}

void Decoder::throwDamaged() const
{
    throw HostError(ExitCode::UnreadableInput, name,
        QStringLiteral("the picture is damaged or truncated"),
        QStringLiteral("get a complete copy"));
}

} // namespace host
