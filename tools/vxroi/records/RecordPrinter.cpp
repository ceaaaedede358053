#include "RecordPrinter.h"

#include "host/FileName.h"
#include "host/records/CropWindow.h"
#include "vxroi/options/Checks.h"

namespace vxroi {

namespace {

// The CSS object-position that shows the window when the picture covers a box of the window's shape.
QString objectPositionOf(const QRect& window, const QSize& picture)
{
    const auto percent = [](int start, int room) {
        return QString::number(room == 0 ? 50.0 : 100.0 * start / room, 'f', 2);
    };
    return QStringLiteral("object-position: %1% %2%")
        .arg(percent(window.x(), picture.width() - window.width()),
            percent(window.y(), picture.height() - window.height()));
}

// The focus in the form that --focus takes.
QString focusOf(const VXCropWindow& chosen)
{
    return QStringLiteral("%1,%2")
        .arg(chosen.focus.x(), 0, 'f', 4)
        .arg(chosen.focus.y(), 0, 'f', 4);
}

QString textOf(const VXCropWindow& chosen, const QSize& picture, RecordPrinter::Output output)
{
    if (output == RecordPrinter::Output::Css)
        return objectPositionOf(chosen.window, picture);
    return output == RecordPrinter::Output::Focus ? focusOf(chosen)
                                                  : host::geometryOf(chosen.window);
}

} // namespace

RecordPrinter::RecordPrinter(Output outputByDefault)
    : output(outputByDefault)
    , defaultOutput(outputByDefault)
{
}

void RecordPrinter::addTo(CLI::App& command)
{
    CLI::Option* const record
        = command.add_flag("--json", json, "print one record for each picture, as JSON");
    const Choices<Output> choices { { "geometry", Output::Geometry }, { "css", Output::Css },
        { "focus", Output::Focus } };
    addChoice(command, "--emit", output, choices,
        "print crops as geometry, WxH+X+Y in pixels, as css, object-position, or as focus, FX,FY")
        ->excludes(record);
}

bool RecordPrinter::isRequested() const { return json || output != defaultOutput; }

QByteArray RecordPrinter::linesOf(const host::CropRecord& record, bool isOnlyLine) const
{
    if (isJsonWanted())
        return record.toJson() + '\n';
    QByteArray lines;
    for (const host::CropResult& crop : record.crops) {
        if (crop.state == host::OutputState::Skipped)
            continue;
        if (!isOnlyLine)
            lines += host::bytesOfName(host::onOneLine(record.path)) + '\t' + crop.shape.toUtf8()
                + '\t';
        lines += textOf(crop.chosen, record.oriented, output).toUtf8() + '\n';
    }
    return lines;
}

} // namespace vxroi
