#include "Overlay.h"

#include "ImageMemory.h"

#include <QPainter>
#include <QRegion>
#include <QVector>

#include <algorithm>
#include <array>

namespace host {

namespace {

constexpr int longestSide = 1600;

// Stops of the heat scale, evenly spaced from level 0 to level 255.
constexpr std::array<QRgb, 5> heatStops
    = { 0x00000010, 0x50581A6E, 0x90B6365A, 0xB0F07F18, 0xC0FCF060 };

int brightestLevelOf(const QImage& levels)
{
    int brightest = 0;
    for (int y = 0; y < levels.height(); ++y) {
        const uchar* const row = levels.constScanLine(y);
        brightest = std::max<int>(brightest, *std::max_element(row, row + levels.width()));
    }
    return brightest;
}

// The colours of the 256 levels, each a mix of the two stops around it, stretched so that the scale
// ends at the brightest.
QVector<QRgb> heatScale(int brightest)
{
    constexpr int lastStop = static_cast<int>(heatStops.size()) - 1;
    QVector<QRgb> colours;
    for (int level = 0; level < 256; ++level) {
        const int stretched = std::min(level * 255 / std::max(brightest, 1), 255);
        const int position = stretched * lastStop;
        const int stop = std::min(position / 255, lastStop - 1);
        const int share = position - stop * 255;
        const QRgb low = heatStops.at(static_cast<std::size_t>(stop));
        const QRgb high = heatStops.at(static_cast<std::size_t>(stop) + 1);
        const auto mixed
            = [share](int from, int to) { return (from * (255 - share) + to * share) / 255; };
        colours.append(qRgba(mixed(qRed(low), qRed(high)), mixed(qGreen(low), qGreen(high)),
            mixed(qBlue(low), qBlue(high)), mixed(qAlpha(low), qAlpha(high))));
    }
    return colours;
}

// A map is grey, so its levels serve as indices into a colour table.
QImage heatOf(const QImage& map)
{
    QImage heat = held(map.convertToFormat(QImage::Format_Grayscale8));
    const int brightest = brightestLevelOf(heat);
    heat.reinterpretAsFormat(QImage::Format_Indexed8);
    heat.setColorTable(heatScale(brightest));
    return heat;
}

int lineWidthFor(const QSize& frame)
{
    return std::max(2, std::max(frame.width(), frame.height()) / 300);
}

void outline(QPainter& painter, const QRect& frame, const QRect& window)
{
    for (const QRect& outside : QRegion(frame).subtracted(window))
        painter.fillRect(outside, QColor(0, 0, 0, 130));
    const int lineWidth = lineWidthFor(frame.size());
    painter.setPen(QPen(Qt::white, lineWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const int before = lineWidth / 2;
    const int behind = lineWidth - before;
    painter.drawRect(window.adjusted(before, before, -behind, -behind));
}

void mark(QPainter& painter, const QRect& frame, const QRect& area)
{
    painter.setPen(
        QPen(Qt::cyan, lineWidthFor(frame.size()), Qt::DashLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(area);
}

// The colours of all levels over black, from left to right, framed.
void drawLegend(QPainter& painter, const QRect& frame)
{
    const int lineWidth = lineWidthFor(frame.size());
    const QRect bar(frame.left() + 4 * lineWidth, frame.bottom() - 8 * lineWidth, frame.width() / 4,
        4 * lineWidth);
    if (bar.width() < 16 || bar.top() < frame.top())
        return;
    QImage levels(256, 1, QImage::Format_Indexed8);
    levels.setColorTable(heatScale(255));
    for (int level = 0; level < 256; ++level)
        levels.setPixel(level, 0, static_cast<uint>(level));
    painter.fillRect(bar, Qt::black);
    painter.drawImage(bar, levels);
    painter.setPen(QPen(Qt::white, std::max(lineWidth / 2, 1)));
    painter.drawRect(bar);
}

} // namespace

QImage drawOverlay(
    const QImage& picture, const QImage& map, const QRect& window, const QVector<QRect>& keep)
{
    const bool isLarge = std::max(picture.width(), picture.height()) > longestSide;
    const QImage shown = isLarge ? held(picture.scaled(longestSide, longestSide,
                             Qt::KeepAspectRatio, Qt::SmoothTransformation))
                                 : picture;
    QImage overlay = held(shown.convertToFormat(QImage::Format_RGB32));

    QPainter painter(&overlay);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(overlay.rect(), heatOf(map));
    const double scale = static_cast<double>(overlay.width()) / picture.width();
    const auto shownRect = [scale](const QRect& rect) {
        return QRectF(
            rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale)
            .toAlignedRect();
    };
    if (!window.isNull())
        outline(painter, overlay.rect(), shownRect(window));
    for (const QRect& area : keep)
        mark(painter, overlay.rect(), shownRect(area));
    drawLegend(painter, overlay.rect());
    painter.end();
    return overlay;
}

} // namespace host
