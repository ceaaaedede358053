#include "Overlay.h"

#include "SalienceMap.h"
#include "host/picture/ImageMemory.h"

#include <QPainter>
#include <QRegion>
#include <QVector>

#include <algorithm>
#include <array>
#include <cstring>

namespace host {

namespace {

constexpr int longestSide = 1600;

// The colours of the 256 levels, interpolated between the stops.
QVector<QRgb> heatScale()
{
    constexpr int lastStop = static_cast<int>(heatStops.size()) - 1;
    QVector<QRgb> colours;
    for (int level = 0; level < 256; ++level) {
        const int position = level * lastStop;
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

// A map is grey, so its levels can be indices into a colour table.
QImage heatOf(const QImage& map)
{
    QImage heat = brightened(map);
    heat.reinterpretAsFormat(QImage::Format_Indexed8);
    heat.setColorTable(heatScale());
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
    // The pen is centred on the rectangle; this keeps the line within the window.
    const int leading = lineWidth / 2;
    const int trailing = lineWidth - leading;
    painter.drawRect(window.adjusted(leading, leading, -trailing, -trailing));
}

void mark(QPainter& painter, const QRect& frame, const QRect& area, Qt::GlobalColor colour)
{
    painter.setPen(
        QPen(colour, lineWidthFor(frame.size()), Qt::DashLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(area);
}

// A character of the scale's labels, as pixels: without a display, Qt has no fonts.
struct Glyph {
    char character;
    std::array<const char*, 5> rows;
};

constexpr std::array<Glyph, 4> glyphs { {
    { '0', { "###", "# #", "# #", "# #", "###" } },
    { '1', { " # ", "## ", " # ", " # ", "###" } },
    { '5', { "###", "#  ", "###", "  #", "###" } },
    { '%', { "# #", "  #", " # ", "#  ", "# #" } },
} };

constexpr int glyphAdvance = 4;

// Writes \a label centred below \a top, with dots of \a dot by \a dot pixels.
void write(QPainter& painter, const char* label, const QPoint& top, int dot)
{
    const int length = static_cast<int>(std::strlen(label));
    int left = top.x() - (length * glyphAdvance - 1) * dot / 2;
    for (const char* character = label; *character != '\0'; ++character) {
        const auto* const glyph = std::find_if(glyphs.begin(), glyphs.end(),
            [=](const Glyph& candidate) { return candidate.character == *character; });
        for (int row = 0; row < 5; ++row) {
            for (int column = 0; column < 3; ++column) {
                if (glyph->rows.at(static_cast<std::size_t>(row))[column] == '#')
                    painter.fillRect(left + column * dot, top.y() + row * dot, dot, dot, Qt::white);
            }
        }
        left += glyphAdvance * dot;
    }
}

// The height of the strip with the scale below the picture; 0 when the picture is too narrow for it.
int scaleHeightFor(const QSize& frame)
{
    constexpr int leastWidth = 120;
    return frame.width() < leastWidth ? 0 : 13 * lineWidthFor(frame);
}

// Draws the colours of all levels over mid-grey, from left to right, with labels in percent of the brightest level.
void drawScale(QPainter& painter, const QRect& strip)
{
    const int dot = strip.height() / 13;
    const QRect bar(
        strip.left() + strip.width() / 10, strip.top() + dot, strip.width() * 8 / 10, 4 * dot);
    QImage levels(256, 1, QImage::Format_Indexed8);
    levels.setColorTable(heatScale());
    for (int level = 0; level < 256; ++level)
        levels.setPixel(level, 0, static_cast<uint>(level));
    painter.fillRect(strip, Qt::black);
    painter.fillRect(bar, Qt::gray);
    painter.drawImage(bar, levels);
    write(painter, "0%", { bar.left(), bar.bottom() + 2 * dot }, dot);
    write(painter, "50%", { bar.center().x(), bar.bottom() + 2 * dot }, dot);
    write(painter, "100%", { bar.right(), bar.bottom() + 2 * dot }, dot);
}

} // namespace

QImage drawOverlay(const QImage& picture, const QImage& map, const QRect& window,
    const VXCropConstraints& constraints)
{
    const bool isLarge = std::max(picture.width(), picture.height()) > longestSide;
    const QImage shown = isLarge ? notNull(picture.scaled(longestSide, longestSide,
                             Qt::KeepAspectRatio, Qt::SmoothTransformation))
                                 : picture;
    const QRect frame = shown.rect();
    const QRect strip(0, frame.height(), frame.width(), scaleHeightFor(frame.size()));
    QImage overlay
        = notNull(QImage(frame.width(), frame.height() + strip.height(), QImage::Format_RGB32));

    QPainter painter(&overlay);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(frame, notNull(shown.convertToFormat(QImage::Format_RGB32)));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawImage(frame, heatOf(map));
    const double scale = static_cast<double>(frame.width()) / picture.width();
    const auto shownRect = [scale](const QRect& rect) {
        return QRectF(
            rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale)
            .toAlignedRect();
    };
    if (!window.isNull())
        outline(painter, frame, shownRect(window));
    for (const QRect& area : constraints.keep)
        mark(painter, frame, shownRect(area), Qt::cyan);
    for (const QRect& area : constraints.avoid)
        mark(painter, frame, shownRect(area), Qt::red);
    for (const QRect& face : constraints.faces)
        mark(painter, frame, shownRect(face), Qt::green);
    if (!strip.isEmpty())
        drawScale(painter, strip);
    painter.end();
    return overlay;
}

} // namespace host
