#include "ReportArticle.h"

#include "host/CropWindow.h"
#include "host/ImageMemory.h"
#include "host/SalienceMap.h"
#include "host/picture/JpegEncoder.h"

#include <algorithm>

namespace vxroi {

namespace {

constexpr int cropPixels = 320; ///< the longer side of a crop on the page, at most
constexpr int mapPixels = 320;
constexpr int jpegQuality = 80;

QImage atMost(const QImage& image, int pixels)
{
    if (std::max(image.width(), image.height()) <= pixels)
        return image;
    return image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QString imageTag(const QImage& image, const QString& alternative)
{
    const QByteArray bytes = host::encodedJpeg(
        host::held(image.convertToFormat(QImage::Format_RGB888)), { jpegQuality, true, false });
    return QStringLiteral("<img alt=\"%1\" width=\"%2\" height=\"%3\" "
                          "src=\"data:image/jpeg;base64,%4\">")
        .arg(alternative)
        .arg(image.width())
        .arg(image.height())
        .arg(QString::fromLatin1(bytes.toBase64()));
}

QString figureOf(const QImage& image, const QString& caption)
{
    return QStringLiteral("<figure>%1<figcaption>%2</figcaption></figure>\n")
        .arg(imageTag(image, caption), caption);
}

// A window of the picture, cut out of the image that was analysed.
QImage cutOut(const ReportEntry& entry, const QRect& window)
{
    const double scaleX = static_cast<double>(entry.working.width()) / entry.size.width();
    const double scaleY = static_cast<double>(entry.working.height()) / entry.size.height();
    const QRectF exact(window.x() * scaleX, window.y() * scaleY, window.width() * scaleX,
        window.height() * scaleY);
    const QRect part = exact.toRect() & entry.working.rect();
    return atMost(entry.working.copy(part.isEmpty() ? entry.working.rect() : part), cropPixels);
}

QString rectTag(const QRect& window, const char* kind)
{
    return QStringLiteral("<rect class=\"%1\" x=\"%2\" y=\"%3\" width=\"%4\" height=\"%5\"/>")
        .arg(QLatin1String(kind))
        .arg(window.x())
        .arg(window.y())
        .arg(window.width())
        .arg(window.height());
}

QString outlined(const ReportEntry& entry)
{
    QString rects;
    for (const ReportCrop& crop : entry.crops)
        rects += rectTag(crop.chosen.window, "halo") + rectTag(crop.chosen.window, "ours");
    return QStringLiteral("<div class=\"outlined\">%1<svg viewBox=\"0 0 %2 %3\" "
                          "preserveAspectRatio=\"none\">%4</svg></div>\n")
        .arg(imageTag(entry.working, QStringLiteral("the picture")))
        .arg(entry.size.width())
        .arg(entry.size.height())
        .arg(rects);
}

QString percent(double share)
{
    return QString::number(share * 100, 'f', 1) + QStringLiteral(" %");
}

QString cropFigures(const ReportEntry& entry)
{
    QString html;
    for (const ReportCrop& crop : entry.crops) {
        html += QStringLiteral("<div class=\"crops\">\n")
            + figureOf(cutOut(entry, crop.chosen.window),
                QStringLiteral("%1, chosen: %2").arg(crop.shape, percent(crop.chosen.salience)))
            + figureOf(cutOut(entry, crop.centred),
                QStringLiteral("%1, centre: %2")
                    .arg(crop.shape, percent(crop.chosen.centreSalience)))
            + QStringLiteral("</div>\n");
    }
    return html;
}

QString mapFigures(const ReportEntry& entry)
{
    QString html = QStringLiteral("<h3>Maps, stretched</h3>\n<div class=\"maps\">\n")
        + figureOf(atMost(host::stretched(entry.map), mapPixels), QStringLiteral("blended"));
    for (const VXCropMap& single : entry.methodMaps)
        html += figureOf(atMost(host::stretched(single.map), mapPixels), single.method);
    return html + QStringLiteral("</div>\n");
}

QString numbersOf(const ReportEntry& entry)
{
    QString rows;
    for (const ReportCrop& crop : entry.crops)
        rows += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td><td>%5</td>"
                               "<td>%6</td></tr>\n")
                    .arg(crop.shape, host::geometryOf(crop.chosen.window),
                        host::nameOf(crop.chosen.reason), percent(crop.chosen.salience),
                        percent(crop.chosen.centreSalience), percent(crop.offset(entry.size)));
    return QStringLiteral("<div class=\"numbers\"><table>\n<tr><th>shape</th><th>window</th>"
                          "<th>decided by</th><th>keeps</th><th>centre keeps</th>"
                          "<th>from the centre</th></tr>\n%1</table></div>\n")
        .arg(rows);
}

template <typename Value> double largestOf(const QVector<ReportCrop>& crops, Value value)
{
    double largest = 0;
    for (const ReportCrop& crop : crops)
        largest = std::max(largest, value(crop));
    return largest;
}

} // namespace

QByteArray articleOf(const ReportEntry& entry, int position)
{
    const double offset = largestOf(
        entry.crops, [&entry](const ReportCrop& crop) { return crop.offset(entry.size); });
    const double gain = largestOf(entry.crops,
        [](const ReportCrop& crop) { return crop.chosen.salience - crop.chosen.centreSalience; });
    const QString content = entry.failure.isEmpty()
        ? QStringLiteral("<div class=\"views\">\n%1<div>\n%2</div></div>\n")
                .arg(outlined(entry), cropFigures(entry))
            + numbersOf(entry) + mapFigures(entry)
        : QStringLiteral("<p class=\"failure\">%1</p>\n").arg(entry.failure.toHtmlEscaped());
    return QStringLiteral("<article data-position=\"%1\" data-offset=\"%2\" data-gain=\"%3\">\n"
                          "<h2>%4</h2>\n%5</article>\n")
        .arg(position)
        .arg(offset, 0, 'f', 4)
        .arg(gain, 0, 'f', 4)
        .arg(host::onOneLine(entry.path).toHtmlEscaped(), content)
        .toUtf8();
}

} // namespace vxroi
