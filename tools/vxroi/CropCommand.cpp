#include "CropCommand.h"

#include "Tasks.h"
#include "WorkerThreads.h"
#include "host/CropWindow.h"
#include "host/FileName.h"
#include "host/HostError.h"
#include "host/StandardError.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace vxroi {

namespace {

using host::CropRecord;
using host::CropResult;
using host::ExitCode;

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

QString lineOf(const VXCropWindow& chosen, const QSize& picture, const std::string& emitted)
{
    if (emitted == "css")
        return objectPositionOf(chosen.window, picture);
    return emitted == "focus" ? focusOf(chosen) : host::geometryOf(chosen.window);
}

void print(const CropRecord& record, const CropArguments& arguments, bool isOnlyLine)
{
    if (arguments.json) {
        std::cout << record.toJson().constData() << '\n';
        return;
    }
    for (const CropResult& crop : record.crops) {
        const QString line = lineOf(crop.chosen, record.oriented, arguments.emit);
        if (!isOnlyLine)
            std::cout << host::bytesOfName(host::onOneLine(record.path)).toStdString() << '\t'
                      << crop.shape.toStdString() << '\t';
        std::cout << line.toStdString() << '\n';
    }
}

} // namespace

host::ExitCode runCrop(const CropArguments& arguments)
{
    const bool isStreamTaken = arguments.crop.output == "-";
    if (isStreamTaken && arguments.json)
        throw host::HostError(ExitCode::Usage, QStringLiteral("--output -"),
            QStringLiteral("standard output is for the record"),
            QStringLiteral("name a file, or leave --json out"));
    const TaskPlan plan(arguments.crop, arguments.analysis);
    plan.requireShapes();
    OutputClaims claims;
    host::Cropper cropper(arguments.crop.rules(arguments.analysis), arguments.analysis.maxPixels);
    const bool isOnlyPicture = arguments.pictures.size() == 1;
    const bool isOnlyLine = isOnlyPicture && plan.shapes().size() == 1;
    startWorkerThreads();
    bool hasFailed = false;
    for (const std::string& picture : arguments.pictures) {
        PlannedTask planned = plan.plan({ pathFrom(picture) });
        claims.claim(planned);
        const CropRecord record = cropper.crop(planned.task);
        if (arguments.json || !(record.failure || isStreamTaken))
            print(record, arguments, isOnlyLine);
        if (record.failure && isOnlyPicture)
            throw host::HostError(*record.failure);
        if (record.failure)
            host::writeError(std::string("vxroi: ") + record.failure->what() + '\n');
        else
            for (const QString& warning : record.warnings)
                host::writeWarning(record.path, warning);
        hasFailed = hasFailed || record.failure;
    }
    return hasFailed ? ExitCode::SomeFailed : ExitCode::Success;
}

void addCropCommand(CLI::App& app, CropArguments& arguments, host::ExitCode& exitCode)
{
    CLI::App* const crop
        = app.add_subcommand("crop", "Choose the windows to keep of pictures, and crop them");
    crop->add_option(
            "PICTURE", arguments.pictures, "the picture files to read; - is standard input")
        ->required();
    arguments.crop.addTo(*crop);
    crop->add_flag("--json", arguments.json, "print one record for each picture, as JSON");
    crop->add_option("--emit", arguments.emit,
            "print windows as geometry, WxH+X+Y in pixels, or as css, object-position, or their "
            "focus, "
            "FX,FY")
        ->type_name("WHAT")
        ->check(CLI::IsMember({ "geometry", "css", "focus" }))
        ->capture_default_str();
    arguments.analysis.addTo(*crop);
    crop->callback([&] { exitCode = runCrop(arguments); });
}

} // namespace vxroi
