#include "ReportArticle.h"

#include "ReportViews.h"

#include "host/FileName.h"
#include "host/records/CropWindow.h"

#include <algorithm>
#include <array>

namespace vxroi {

using host::CropRecord;
using host::CropResult;

namespace {

constexpr std::array<const char*, 6> columns
    = { "shape", "window", "decided by", "keeps", "centre keeps", "from the centre" };

QString paragraph(const char* kind, const QString& text)
{
    return QStringLiteral("<p class=\"%1\">%2</p>\n")
        .arg(QLatin1String(kind), host::onOneLine(text).toHtmlEscaped());
}

QString headRow()
{
    QString cells;
    for (const char* const column : columns)
        cells += QStringLiteral("<th>%1</th>").arg(QLatin1String(column));
    return QStringLiteral("<thead><tr>%1</tr></thead>\n").arg(cells);
}

// Narrow screens show each row as a list, so every cell carries the name of its column.
QString rowOf(const std::array<QString, columns.size()>& texts)
{
    QString cells;
    for (std::size_t i = 0; i < columns.size(); ++i)
        cells += QStringLiteral("<td data-label=\"%1\">%2</td>")
                     .arg(QLatin1String(columns.at(i)), texts.at(i).toHtmlEscaped());
    return QStringLiteral("<tr>%1</tr>\n").arg(cells);
}

QString rowOf(const CropResult& crop, const QSize& picture)
{
    const VXCropWindow& chosen = crop.chosen;
    const QString none = QStringLiteral("–");
    if (chosen.window.isNull())
        return rowOf({ crop.shape, none, host::nameOf(crop.state), none, none, none });
    return rowOf({ crop.shape, host::geometryOf(chosen.window), host::nameOf(chosen.reason),
        percent(chosen.salience), percent(chosen.centreSalience),
        percent(offsetOf(chosen.window, picture)) });
}

QString numbersOf(const CropRecord& record)
{
    QString rows;
    for (const CropResult& crop : record.crops)
        rows += rowOf(crop, record.oriented);
    return QStringLiteral("<table>\n%1<tbody>\n%2</tbody></table>\n").arg(headRow(), rows);
}

// The size, the number of faces, the version and the settings; a page may show records of several runs.
QString originOf(const CropRecord& record)
{
    QStringList parts;
    if (!record.oriented.isEmpty())
        parts.append(QStringLiteral("%1 × %2 pixels")
                         .arg(record.oriented.width())
                         .arg(record.oriented.height()));
    if (record.faces)
        parts.append(QStringLiteral("faces: %1").arg(record.faces->size()));
    if (!record.version.isEmpty())
        parts.append(QStringLiteral("vxroi %1").arg(record.version));
    if (!record.settings.isEmpty())
        parts.append(QStringLiteral("settings: %1").arg(record.settings));
    return paragraph("origin", parts.join(QStringLiteral(", ")));
}

QString outputsOf(const CropRecord& record)
{
    QString outputs;
    for (const CropResult& crop : record.crops) {
        if (crop.state != host::OutputState::None)
            outputs += paragraph("output",
                QStringLiteral("%1 %2: %3")
                    .arg(crop.shape, host::nameOf(crop.state), crop.outputPath));
    }
    return outputs;
}

// The checkbox precedes the views, so that a CSS selector can make them depend on it.
QString heatControl(int position)
{
    return QStringLiteral(
        "<input type=\"checkbox\" class=\"heat-control\" id=\"heat-%1\" autocomplete=\"off\">"
        "<label for=\"heat-%1\">Map as heat</label>\n")
        .arg(position);
}

QString contentOf(const ReportEntry& entry, int position)
{
    const CropRecord& record = entry.record;
    QString content;
    if (entry.failure)
        content += paragraph("failure", host::textOfName(entry.failure->what()));
    content += originOf(record);
    for (const QString& warning : record.warnings)
        content += paragraph("warning", warning);
    if (record.failure)
        return content;
    if (!entry.map.isNull())
        content += heatControl(position);
    if (!entry.thumbnail.isNull())
        content += viewsOf(entry, position);
    return content + numbersOf(record) + outputsOf(record) + methodMapsOf(entry);
}

template <typename Value> double largestOf(const CropRecord& record, Value value)
{
    double largest = 0;
    for (const CropResult& crop : record.crops)
        largest = std::max(largest, value(crop.chosen));
    return largest;
}

} // namespace

QByteArray articleOf(const ReportEntry& entry, int position)
{
    const CropRecord& record = entry.record;
    const double offset = largestOf(record, [&record](const VXCropWindow& chosen) {
        return chosen.window.isNull() ? 0 : offsetOf(chosen.window, record.oriented);
    });
    const double gain = largestOf(record, [](const VXCropWindow& chosen) {
        return host::roundedShare(chosen.salience) - host::roundedShare(chosen.centreSalience);
    });
    return QStringLiteral("<article data-position=\"%1\" data-offset=\"%2\" data-gain=\"%3\">\n"
                          "<h2>%4</h2>\n%5</article>\n")
        .arg(position)
        .arg(offset, 0, 'f', 4)
        .arg(gain, 0, 'f', 4)
        .arg(host::onOneLine(record.path).toHtmlEscaped(), contentOf(entry, position))
        .toUtf8();
}

} // namespace vxroi
