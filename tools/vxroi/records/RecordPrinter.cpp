#include "RecordPrinter.h"

#include "host/crop/CropWindow.h"
#include "host/files/FileName.h"
#include "vxroi/options/Checks.h"

#include <CLI/CLI.hpp>

namespace vxroi {

namespace {

// Where a picture that fills a box of the window's shape must lie in it to show the window.
QString objectPositionOf(const QRect& window, const QSize& picture)
{
    const auto percent = [](int start, int room) {
        return QString::number(room == 0 ? 50.0 : 100.0 * start / room, 'f', 2);
    };
    return QStringLiteral("object-position: %1% %2%")
        .arg(percent(window.x(), picture.width() - window.width()),
            percent(window.y(), picture.height() - window.height()));
}

// Both shares of the picture, as --focus takes them.
QString focusOf(const VXCropWindow& chosen)
{
    return QStringLiteral("%1,%2")
        .arg(chosen.focus.x(), 0, 'f', 4)
        .arg(chosen.focus.y(), 0, 'f', 4);
}

QString textOf(const VXCropWindow& chosen, const QSize& picture, const std::string& emitted)
{
    if (emitted == "css")
        return objectPositionOf(chosen.window, picture);
    return emitted == "focus" ? focusOf(chosen) : host::geometryOf(chosen.window);
}

} // namespace

RecordPrinter::RecordPrinter(UnlessAsked words)
    : emitted(words == UnlessAsked::Json ? "json" : "geometry")
    , unlessAsked(emitted)
{
}

void RecordPrinter::addTo(CLI::App& command)
{
    CLI::Option* const record
        = command.add_flag("--json", json, "print one record for each picture, as JSON");
    CLI::Option* const words
        = command
              .add_option("--emit", emitted,
                  "print windows as geometry, WxH+X+Y in pixels, or as css, object-position, or "
                  "their focus, FX,FY")
              ->type_name("WHAT")
              ->check(oneOf({ "geometry", "css", "focus" }))
              ->excludes(record);
    if (!isJsonWanted())
        words->capture_default_str();
}

bool RecordPrinter::isAsked() const { return json || emitted != unlessAsked; }

QByteArray RecordPrinter::linesOf(const host::CropRecord& record, bool isOnlyLine) const
{
    if (isJsonWanted())
        return record.toJson() + '\n';
    QByteArray lines;
    for (const host::CropResult& crop : record.crops) {
        if (crop.written == host::Written::Skipped)
            continue;
        if (!isOnlyLine)
            lines += host::bytesOfName(host::onOneLine(record.path)) + '\t' + crop.shape.toUtf8()
                + '\t';
        lines += textOf(crop.chosen, record.oriented, emitted).toUtf8() + '\n';
    }
    return lines;
}

} // namespace vxroi
