#include "ReportOutlines.h"

#include "ReportStyle.h"

#include <QRectF>

#include <algorithm>

namespace vxroi {

using host::CropRecord;
using host::CropResult;

namespace {

QString rectTag(const QRect& window, const QString& classes)
{
    return QStringLiteral("<rect class=\"%1\" x=\"%2\" y=\"%3\" width=\"%4\" height=\"%5\"/>")
        .arg(classes)
        .arg(window.x())
        .arg(window.y())
        .arg(window.width())
        .arg(window.height());
}

// All black seams are drawn before all lines, so that where windows share an edge, one line shows in the gaps of the
// other's dashes.
QString linesOf(const CropRecord& record)
{
    QString seams;
    QString lines;
    for (const host::Face& face : record.faces.value_or(QVector<host::Face>())) {
        seams += rectTag(face.box, QStringLiteral("seam"));
        lines += rectTag(face.box, QStringLiteral("face"));
    }
    for (int i = 0; i < record.crops.size(); ++i) {
        const QRect& window = record.crops.at(i).chosen.window;
        if (window.isNull())
            continue;
        seams += rectTag(window, QStringLiteral("seam"));
        lines += rectTag(window, lineClassesOf(i));
    }
    return seams + lines;
}

// Each label is in the upper left corner of its window, moved down below earlier labels that it would overlap.
QString labelsOf(const CropRecord& record)
{
    const double height = 0.042 * std::max(record.oriented.width(), record.oriented.height());
    QVector<QRectF> taken;
    QString labels;
    for (int i = 0; i < record.crops.size(); ++i) {
        const CropResult& crop = record.crops.at(i);
        if (crop.chosen.window.isNull())
            continue;
        QRectF place(crop.chosen.window.topLeft(), QSizeF(height * crop.shape.size(), height));
        const auto overlaps = [&](const QRectF& other) { return other.intersects(place); };
        while (std::any_of(taken.begin(), taken.end(), overlaps))
            place.translate(0, height);
        taken.append(place);
        labels += QStringLiteral("<text class=\"%1\" x=\"%2\" y=\"%3\">%4</text>")
                      .arg(lineClassesOf(i))
                      .arg(place.x() + height / 3, 0, 'f', 1)
                      .arg(place.y() + height, 0, 'f', 1)
                      .arg(crop.shape.toHtmlEscaped());
    }
    return QStringLiteral("<g font-size=\"%1\">%2</g>").arg(height, 0, 'f', 1).arg(labels);
}

} // namespace

QString outlinesOf(const CropRecord& record) { return linesOf(record) + labelsOf(record); }

QString keyOf(int shapePosition)
{
    return QStringLiteral("<svg class=\"key\" aria-hidden=\"true\"><path class=\"seam\" "
                          "d=\"M0 4H44\"/><path class=\"%1\" d=\"M0 4H44\"/></svg>")
        .arg(lineClassesOf(shapePosition));
}

} // namespace vxroi
