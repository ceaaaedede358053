#include "PictureFile.h"

#include "Colours.h"
#include "Engine.h"
#include "Pixels.h"
#include "QtPixels.h"
#include "Scaling.h"
#include "host/HostError.h"

#include <VXCrop/VXCrop.h>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace host {

using vips::VImage;

namespace {

// The part of a reduced picture that shows \a storedRect. One of its pixels stands for \a shrink by \a shrink stored
// pixels; the part is at least one pixel wide and high.
QRect partOf(const QRect& storedRect, int shrink, const QSize& pixels)
{
    const auto along = [shrink](int first, int length, int count) {
        const auto scaled
            = [shrink](int position) { return (2 * position + shrink) / (2 * shrink); };
        const int begin = std::min(scaled(first), count - 1);
        return std::make_pair(begin, std::clamp(scaled(first + length), begin + 1, count) - begin);
    };
    const auto [left, width] = along(storedRect.left(), storedRect.width(), pixels.width());
    const auto [top, height] = along(storedRect.top(), storedRect.height(), pixels.height());
    return { left, top, width, height };
}

// Joins frames into the vertical strip that libvips uses for animations.
VImage stacked(const std::vector<VImage>& frames)
{
    VImage strip = VImage::arrayjoin(frames, VImage::option()->set("across", 1)).copy();
    strip.set(VIPS_META_PAGE_HEIGHT, frames.front().height());
    strip.set(VIPS_META_N_PAGES, static_cast<int>(frames.size()));
    return strip;
}

} // namespace

PictureFile::PictureFile(const QString& path, const ReadingRules& rules)
    : name(path)
    , decoder(path, rules)
    , stored(decoder.header().width(), decoder.header().height() / decoder.frameCount())
    , seen(orientation())
{
    const bool isAnimation = format() == QLatin1String("gif") || format() == QLatin1String("webp");
    if (decoder.frameCount() == 1 && vips_image_get_n_pages(decoder.header().get_image()) > 1)
        notes.append(isAnimation ? QStringLiteral("animated: only the first frame is used")
                                 : QStringLiteral("several pages: only the first is used"));
}

QImage PictureFile::readWorkingImage(int frame)
try {
    const VImage pixels = seen.applied(pixelsForAnalysis(frame));
    const bool isReducedFirst
        = hasQtFormat(pixels) && (pixels.bands() > 1 || !hasOtherColours(pixels));
    if (!isReducedFirst)
        return VXCrop::workingImage(toQImage(inSrgb(pixels)));
    // Reducing first leaves far fewer pixels for the colour conversion.
    QImage working = VXCrop::workingImage(toQImage(pixels));
    if (!hasOtherColours(pixels))
        return working;
    return VXCrop::workingImage(toQImage(inSrgb(withProfileOf(pixels, toVipsImage(working)))));
} catch (const vips::VError& error) {
    throwNotConverted(error);
}

QImage PictureFile::readScaled(const QSize& size)
try {
    const QRect all(QPoint(), orientedSize());
    return toQImage(inSrgb(readCuts({ { all, size, {}, {} } }).first()));
} catch (const vips::VError& error) {
    throwNotConverted(error);
}

QImage PictureFile::readAll()
try {
    return toQImage(seen.applied(inSrgb(decoded(1, areaOfFrame(0)).pixels)));
} catch (const vips::VError& error) {
    throwNotConverted(error);
}

QVector<VImage> PictureFile::readCuts(const QVector<Cut>& cuts)
try {
    QRect area;
    int shrink = std::numeric_limits<int>::max();
    for (const Cut& cut : cuts) {
        const QRect window = toStored(cut.window);
        area |= window;
        shrink = std::min(shrink, shrinkFor(window.size(), seen.inOtherFrame(cut.size)));
    }
    if (frameCount() > 1) { // reducing the strip would mix neighbouring frames at their edges
        area = QRect(QPoint(), boundsOf(decoder.header()).size());
        shrink = 1;
    }
    const Decoded& source = decoded(shrink, area);
    QVector<VImage> pictures;
    for (const Cut& cut : cuts) {
        std::vector<VImage> frames;
        frames.reserve(static_cast<std::size_t>(frameCount()));
        for (int frame = 0; frame < frameCount(); ++frame)
            frames.push_back(cutOut(source, cut, frame));
        pictures.append(frames.size() == 1 ? frames.front() : stacked(frames));
    }
    return pictures;
} catch (const vips::VError& error) {
    throwNotConverted(error);
}

VImage PictureFile::cutOut(const Decoded& source, const Cut& cut, int frame) const
{
    const QRect window
        = toStored(cut.window).translated(areaOfFrame(frame).topLeft() - source.origin);
    const QRect part = partOf(window, source.shrink, boundsOf(source.pixels).size());
    const VImage crop = seen.applied(scaledTo(source.pixels, part, seen.inOtherFrame(cut.size)));
    return cut.canvas.isEmpty() || cut.canvas == cut.size
        ? crop
        : padded(crop, cut.canvas, cut.background);
}

QRect PictureFile::areaOfFrame(int frame) const
{
    return { QPoint(0, frame * stored.height()), stored };
}

// The largest factor by which a part may be reduced while decoding without becoming smaller than \a wanted.
int PictureFile::shrinkFor(const QSize& storedPart, const QSize& wanted) const
{
    const int most = std::max(
        1, std::min(storedPart.width() / wanted.width(), storedPart.height() / wanted.height()));
    if (decoder.mostShrink() == 1)
        return most;
    int shrink = 1;
    while (2 * shrink <= std::min(most, decoder.mostShrink()))
        shrink *= 2;
    return shrink;
}

// Whether the whole picture is decoded once, and all results are made from its pixels: unless it is too large, or the
// decoder can reduce it.
bool PictureFile::isHeldWhole() const
{
    constexpr std::size_t mostBytes = std::size_t { 256 } << 20U;
    return decoder.mostShrink() == 1 && bytesOf(decoder.header()) <= mostBytes;
}

const PictureFile::Decoded& PictureFile::decoded(int shrink, const QRect& area)
{
    const bool suffices = held && held->shrink <= shrink && held->area.contains(area);
    if (!suffices) {
        held.reset();
        const QPoint origin(area.left() / shrink * shrink, area.top() / shrink * shrink);
        held = Decoded { decoder.decode(shrink, area, false), area, origin, shrink };
    }
    return *held;
}

// Pixels of a frame for its working image, in the stored orientation; reduced, but not below the working size.
VImage PictureFile::pixelsForAnalysis(int frame)
{
    const QRect all = areaOfFrame(frame);
    if (frameCount() > 1) {
        const QRect strip(QPoint(), boundsOf(decoder.header()).size());
        return decoded(1, strip).pixels.extract_area(all.x(), all.y(), all.width(), all.height());
    }
    const int shrink = shrinkFor(stored, seen.inOtherFrame(VXCrop::workingSize(orientedSize())));
    if (isHeldWhole()) {
        const VImage pixels = decoded(1, all).pixels;
        const bool isReducedByVXCrop = shrink == 1 || hasQtFormat(pixels);
        return isReducedByVXCrop ? pixels : on(midGrey, pixels).shrink(shrink, shrink);
    }
    if (decoder.header().has_alpha())
        return decoder.decode(shrink, all, true);
    return decoded(shrink, all).pixels;
}

void PictureFile::throwNotConverted(const vips::VError& error) const
{
    throwIfOutOfResources(error);
    throw HostError(ExitCode::UnreadableInput, name,
        QStringLiteral("its pixels cannot be converted"),
        QStringLiteral("convert it to PNG or JPEG"));
}

} // namespace host
