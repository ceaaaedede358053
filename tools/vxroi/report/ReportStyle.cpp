#include "ReportStyle.h"

#include "host/crop/Overlay.h"

#include <array>

namespace vxroi {

namespace {

// Bright colours, which the black seam of the lines sets off from any picture.
constexpr std::array<const char*, 6> colours
    = { "#ffd60a", "#2fe6ff", "#ff6fd8", "#8cff4a", "#ff9a3c", "#ffffff" };

// Lengths of dashes and of the gaps between them, in screen pixels.
constexpr std::array<const char*, 5> dashes = { "none", "10 6", "3 5", "14 5 3 5", "20 9" };

QString channelTable(const char* channel, int (*levelOf)(QRgb))
{
    QStringList shares;
    for (const QRgb stop : host::heatStops)
        shares.append(QString::number(levelOf(stop) / 255.0, 'f', 3));
    return QStringLiteral("<feFunc%1 type=\"table\" tableValues=\"%2\"/>")
        .arg(QLatin1String(channel), shares.join(QLatin1Char(' ')));
}

// Copies the level of a map, which is grey, to its opacity; then maps each channel by a table.
QString heatFilter()
{
    return QStringLiteral("<svg width=\"0\" height=\"0\" aria-hidden=\"true\">"
                          "<filter id=\"heat\" x=\"0\" y=\"0\" width=\"1\" height=\"1\" "
                          "color-interpolation-filters=\"sRGB\">"
                          "<feColorMatrix values=\"1 0 0 0 0 0 1 0 0 0 0 0 1 0 0 1 0 0 0 0\"/>"
                          "<feComponentTransfer>%1</feComponentTransfer></filter></svg>\n")
        .arg(channelTable("R", qRed) + channelTable("G", qGreen) + channelTable("B", qBlue)
            + channelTable("A", qAlpha));
}

} // namespace

QString lineClassesOf(int position)
{
    return QStringLiteral("line c%1 d%2")
        .arg(position % static_cast<int>(colours.size()))
        .arg(position % static_cast<int>(dashes.size()));
}

QByteArray pageStyle()
{
    QString rules;
    int number = 0;
    for (const char* const colour : colours)
        rules += QStringLiteral(".c%1 { --ours: %2; }\n").arg(number++).arg(QLatin1String(colour));
    number = 0;
    for (const char* const dash : dashes)
        rules += QStringLiteral(".d%1 { stroke-dasharray: %2; }\n")
                     .arg(number++)
                     .arg(QLatin1String(dash));
    return (QStringLiteral("<style>\n") + rules + QStringLiteral("</style>\n") + heatFilter())
        .toUtf8();
}

} // namespace vxroi
