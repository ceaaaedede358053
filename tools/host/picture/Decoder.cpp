#include "Decoder.h"

#include "../HostError.h"
#include "Bitmap.h"
#include "Colours.h"
#include "Engine.h"
#include "Formats.h"
#include "Metadata.h"
#include "PictureSource.h"
#include "Pixels.h"

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

// libvips tells now and then how far it has come.
void endLate(VipsImage* image, VipsProgress* /*progress*/, const Deadline* deadline)
{
    if (deadline->hasPassed())
        vips_image_set_kill(image, TRUE);
}

} // namespace

Decoder::Decoder(const QString& path, const ReadingRules& readingRules)
    : name(path)
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
    const vips::VSource source = sourceOf(*device);
    const char* const loader = vips_foreign_find_load_source(source.get_source());
    const auto& formats = formatsRead();
    const auto* const format
        = std::find_if(formats.begin(), formats.end(), [loader](const Format& candidate) {
              return loader != nullptr
                  && std::strncmp(loader, candidate.loader, std::strlen(candidate.loader)) == 0;
          });
    if (format == formats.end())
        throwUnknown(name);
    if (std::strcmp(format->name, "png") == 0)
        refuseManyTexts(name, *device);
    decodingShrink = format->mostShrink;
    headerImage = tolerating([this] { return opened(1); });
    formatName = nameOf(*format, headerImage);
    refuseTooMany(boundsOf(headerImage).size(), headerImage.format() == VIPS_FORMAT_UCHAR ? 1 : 2);
    refuseMuchMetadata(name, headerImage);
}

void Decoder::readBitmap()
{
    formatName = QStringLiteral("bmp");
    const QSize size = bitmapSize(*device);
    if (size.isEmpty())
        throwUnknown(name);
    refuseTooMany(size, 1);
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

// A pixel counts as many times as its weight says.
void Decoder::refuseTooMany(const QSize& size, int weight) const
{
    const qint64 counted = qint64 { size.width() } * size.height() * weight;
    if (counted > rules.mostPixels)
        throw HostError(ExitCode::UnreadableInput, name,
            QStringLiteral("%1 x %2 pixels are too many").arg(size.width()).arg(size.height()),
            QStringLiteral("allow them with --max-pixels %1").arg(counted));
}

VImage Decoder::decode(int shrink, const QRect& area, bool isOpaque)
{
    return tolerating([&] {
        const int byDecoder = std::min(shrink, decodingShrink);
        VImage image = opened(byDecoder);
        if (isOpaque)
            image = onGrey(image, midGrey);
        const int rest = shrink / byDecoder;
        if (rest > 1)
            image = image.shrink(rest, rest);
        const QRect part(QPoint(area.left() / shrink, area.top() / shrink),
            QPoint(area.right() / shrink, area.bottom() / shrink));
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
    VImage image = VImage::new_from_source(sourceOf(*device), "", options);
    vips_image_set_progress(image.get_image(), TRUE);
    g_signal_connect(image.get_image(), "eval", reinterpret_cast<GCallback>(endLate), &timeLimit);
    return image;
}

VImage Decoder::tolerating(const std::function<VImage()>& read)
{
    for (;;) {
        try {
            VImage image = read();
            noteDamage();
            return image;
        } catch (const vips::VError& error) {
            refuseLackOfMeans(error);
            if (timeLimit.hasPassed())
                throw HostError(ExitCode::UnreadableInput, name,
                    QStringLiteral("takes more than %1 seconds").arg(rules.mostSeconds),
                    QStringLiteral("allow more with --max-seconds"));
            if (!tolerateMore())
                throwDamaged();
        }
    }
}

// What decoders only warn of is tolerated in any case.
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
        warn(QStringLiteral("its decoder warns of faults in the file, which may show"));
    if (failOn == VIPS_FAIL_ON_NONE)
        warn(QStringLiteral("damaged or truncated: what is missing is blank"));
}

void Decoder::warn(const QString& note)
{
    if (!notes.contains(note))
        notes.append(note);
}

void Decoder::throwDamaged() const
{
    throw HostError(ExitCode::UnreadableInput, name,
        QStringLiteral("the picture is damaged or truncated"),
        QStringLiteral("get a complete copy"));
}

} // namespace host
