#include "Overlay.h"

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
    QImage heat = map.convertToFormat(QImage::Format_Grayscale8);
    const int brightest = brightestLevelOf(heat);
    heat.reinterpretAsFormat(QImage::Format_Indexed8);
    heat.setColorTable(heatScale(brightest));
    return heat;
}

void outline(QPainter& painter, const QRect& frame, const QRect& window)
{
    for (const QRect& outside : QRegion(frame).subtracted(window))
        painter.fillRect(outside, QColor(0, 0, 0, 130));
    const int lineWidth = std::max(2, std::max(frame.width(), frame.height()) / 300);
    painter.setPen(QPen(Qt::white, lineWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const int before = lineWidth / 2;
    const int behind = lineWidth - before;
    painter.drawRect(window.adjusted(before, before, -behind, -behind));
}

} // namespace

QImage drawOverlay(const QImage& picture, const QImage& map, const QRect& window)
{
    const bool isLarge = std::max(picture.width(), picture.height()) > longestSide;
    const QImage shown = isLarge
        ? picture.scaled(longestSide, longestSide, Qt::KeepAspectRatio, Qt::SmoothTransformation)
        : picture;
    QImage overlay = shown.convertToFormat(QImage::Format_RGB32);

    QPainter painter(&overlay);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(overlay.rect(), heatOf(map));
    if (!window.isNull()) {
        const double scale = static_cast<double>(overlay.width()) / picture.width();
        const QRectF shownWindow(window.x() * scale, window.y() * scale, window.width() * scale,
            window.height() * scale);
        outline(painter, overlay.rect(), shownWindow.toAlignedRect());
    }
    painter.end();
    return overlay;
}

} // namespace host
