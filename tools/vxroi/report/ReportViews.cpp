#include "ReportViews.h"

#include "ReportOutlines.h"

#include "host/crop/SalienceMap.h"
#include "host/picture/ImageMemory.h"
#include "host/picture/JpegEncoder.h"
#include "host/records/CropWindow.h"

#include <algorithm>

namespace vxroi {

using host::CropRecord;
using host::CropResult;

namespace {

constexpr int mostThumbnailBytes = 9500;
constexpr int mostMapBytes = 2000;
constexpr int pictureScreenPixels = 352; ///< the longer side, where the screen has room
constexpr int cropScreenPixels = 180;

// A JPEG as a data URL. The quality is lowered until it fits, so that detailed pictures do not make the page large.
QString jpegWithin(const QImage& image, int mostBytes)
{
    constexpr int least = 15;
    constexpr int step = 10;
    int quality = 75;
    QByteArray bytes = host::encodedJpeg(image, { quality, true, true });
    while (bytes.size() > mostBytes && quality > least) {
        quality -= step;
        bytes = host::encodedJpeg(image, { quality, true, true });
    }
    return QStringLiteral("data:image/jpeg;base64,") + QString::fromLatin1(bytes.toBase64());
}

// An image that covers the whole picture, in units of picture pixels.
QString imageTag(const QString& source, const QSize& picture, const QString& attributes)
{
    return QStringLiteral("<image %1 width=\"%2\" height=\"%3\" preserveAspectRatio=\"none\" "
                          "href=\"%4\"/>")
        .arg(attributes)
        .arg(picture.width())
        .arg(picture.height())
        .arg(source);
}

// A view of a part of the picture, with \a screenPixels screen pixels on its longer side.
QString viewTag(const QRect& part, int screenPixels, const QString& attributes,
    const QString& description, const QString& content)
{
    const QSize shown = part.size().scaled(screenPixels, screenPixels, Qt::KeepAspectRatio);
    return QStringLiteral("<svg %1 viewBox=\"%2 %3 %4 %5\" width=\"%6\" height=\"%7\" "
                          "role=\"img\" aria-label=\"%8\">%9</svg>")
        .arg(attributes)
        .arg(part.x())
        .arg(part.y())
        .arg(part.width())
        .arg(part.height())
        .arg(std::max(shown.width(), 1))
        .arg(std::max(shown.height(), 1))
        .arg(description, content);
}

QString pictureView(const ReportEntry& entry, int position)
{
    const CropRecord& record = entry.record;
    QString content
        = imageTag(jpegWithin(host::notNull(entry.thumbnail.convertToFormat(QImage::Format_RGB888)),
                       mostThumbnailBytes),
            record.oriented, QStringLiteral("id=\"picture-%1\"").arg(position));
    if (!entry.map.isNull())
        content += imageTag(jpegWithin(host::brightened(entry.map), mostMapBytes), record.oriented,
            QStringLiteral("class=\"heat\" filter=\"url(#heat)\""));
    return viewTag({ QPoint(), record.oriented }, pictureScreenPixels,
        QStringLiteral("class=\"picture\""), QStringLiteral("the picture and its crops"),
        content + outlinesOf(record));
}

QString cropFigure(const QRect& window, const QString& shape, const QString& caption, int position)
{
    return QStringLiteral("<figure>%1<figcaption>%2</figcaption></figure>\n")
        .arg(viewTag(window, cropScreenPixels, QStringLiteral("class=\"crop\""),
                 shape + QLatin1Char(' ') + caption,
                 QStringLiteral("<use href=\"#picture-%1\"/>").arg(position)),
            caption);
}

QString figuresOf(const CropResult& crop, const QSize& picture, int position)
{
    if (crop.chosen.window.isNull())
        return QStringLiteral("<p>The crop was skipped, so none was chosen.</p>\n");
    const QRect centred = host::centredIn(picture, crop.chosen.window.size());
    const QString shape = crop.shape.toHtmlEscaped();
    return QStringLiteral("<div class=\"pair\">\n%1%2</div>\n")
        .arg(cropFigure(crop.chosen.window, shape,
                 QStringLiteral("chosen: %1").arg(percent(crop.chosen.salience)), position),
            cropFigure(centred, shape,
                QStringLiteral("centre: %1").arg(percent(crop.chosen.centreSalience)), position));
}

} // namespace

QString percent(double share)
{
    return QString::number(host::roundedShare(share) * 100, 'f', 1) + QStringLiteral(" %");
}

QString viewsOf(const ReportEntry& entry, int position)
{
    const CropRecord& record = entry.record;
    QString crops;
    for (int i = 0; i < record.crops.size(); ++i)
        crops += QStringLiteral("<section><h3>%1 %2</h3>\n%3</section>\n")
                     .arg(keyOf(i), record.crops.at(i).shape.toHtmlEscaped(),
                         figuresOf(record.crops.at(i), record.oriented, position));
    return QStringLiteral("<div class=\"views\">\n%1\n<div class=\"crops\">\n%2</div></div>\n")
        .arg(pictureView(entry, position), crops);
}

QString methodMapsOf(const ReportEntry& entry)
{
    if (entry.methodMaps.isEmpty())
        return {};
    QString figures;
    for (const VXCropMap& single : entry.methodMaps)
        figures += QStringLiteral("<figure><img alt=\"%1\" src=\"%2\"><figcaption>%1</figcaption>"
                                  "</figure>\n")
                       .arg(single.method, jpegWithin(host::stretched(single.map), mostMapBytes));
    return QStringLiteral(
        "<h3>Maps of the methods, stretched</h3>\n<div class=\"maps\">\n%1</div>\n")
        .arg(figures);
}

} // namespace vxroi
