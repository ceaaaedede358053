#include "CropWindow.h"

#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>

#include <QColorSpace>

#include <algorithm>

namespace host {

namespace {

// number · numerator / denominator, rounded to the nearest integer.
int scaled(qint64 number, qint64 numerator, qint64 denominator)
{
    return static_cast<int>((2 * number * numerator + denominator) / (2 * denominator));
}

// One axis of the picture and of its map, in pixels.
struct Axis {
    int pictureLength;
    int mapLength;
};

int startOfWindow(const VXSalienzMaximizerAbstract& maximizer, const QImage& map, const Axis& axis,
    int windowLength)
{
    const int stripLength = std::max(scaled(windowLength, axis.mapLength, axis.pictureLength), 1);
    const int start = maximizer.startOfBestRange(map, stripLength);
    return std::min(
        scaled(start, axis.pictureLength, axis.mapLength), axis.pictureLength - windowLength);
}

} // namespace

QSize largestWindow(const QSize& picture, const AspectRatio& ratio)
{
    const bool hasRoomSideways = picture.width() * ratio.height > picture.height() * ratio.width;
    if (hasRoomSideways) {
        const int width = scaled(picture.height(), ratio.width, ratio.height);
        return QSize(std::clamp(width, 1, picture.width()), picture.height());
    }
    const int height = scaled(picture.width(), ratio.height, ratio.width);
    return QSize(picture.width(), std::clamp(height, 1, picture.height()));
}

QRect chooseWindow(const QImage& map, const QSize& picture, const AspectRatio& ratio)
{
    const QSize window = largestWindow(picture, ratio);
    QPoint start;
    if (window.width() < picture.width())
        start.setX(startOfWindow(
            VXSalienzMaximizerHorizontal(), map, { picture.width(), map.width() }, window.width()));
    if (window.height() < picture.height())
        start.setY(startOfWindow(VXSalienzMaximizerVertical(), map,
            { picture.height(), map.height() }, window.height()));
    return QRect(start, window);
}

QImage viewOf(QImage& picture, const QRect& window)
{
    constexpr std::ptrdiff_t bytesPerPixel = 4;
    // Over constant bytes, setting the colour space would make a copy.
    uchar* const firstPixel = picture.scanLine(window.top()) + window.left() * bytesPerPixel;
    QImage view(
        firstPixel, window.width(), window.height(), picture.bytesPerLine(), picture.format());
    view.setColorSpace(picture.colorSpace());
    view.setDotsPerMeterX(picture.dotsPerMeterX());
    view.setDotsPerMeterY(picture.dotsPerMeterY());
    return view;
}

} // namespace host
