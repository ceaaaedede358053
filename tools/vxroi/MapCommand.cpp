#include "MapCommand.h"

#include "OutputFiles.h"
#include "host/files/FileName.h"
#include "vxroi/work/WorkerThreads.h"

#include "host/HostError.h"
#include "host/crop/Analysis.h"
#include "host/crop/AspectRatio.h"
#include "host/crop/CropWindow.h"
#include "host/crop/Overlay.h"
#include "host/crop/SalienceMap.h"

#include <CLI/CLI.hpp>

#include <optional>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// No text asks for no window.
std::optional<QSize> ratioOf(const std::string& text)
{
    if (text.empty())
        return std::nullopt;
    return host::parseAspectRatio(QString::fromStdString(text));
}

// Where the maps go: one of them at least is named.
struct MapOutputs {
    explicit MapOutputs(const MapArguments& arguments)
        : map(pathFrom(arguments.output))
        , overlay(pathFrom(arguments.overlay))
        , folder(pathFrom(arguments.perMethod))
    {
        if (map.isEmpty() && overlay.isEmpty() && folder.isEmpty())
            throw HostError(ExitCode::Usage, QStringLiteral("map"),
                QStringLiteral("no output is named"),
                QStringLiteral("add --output, --overlay or --per-method"));
        if (!map.isEmpty() && !host::isStandardStream(map))
            requirePng(map);
    }

    QString map;
    QString overlay;
    QString folder; ///< of the maps of single methods
};

} // namespace

void runMap(const MapArguments& arguments)
{
    const MapOutputs outputs(arguments);
    const std::optional<QSize> ratio = ratioOf(arguments.ratio);
    const host::AnalysisRules rules = arguments.analysis.rules();
    host::Constraints asked;
    asked.keep = parseAreas(arguments.keep, QStringLiteral("--keep"));
    asked.avoid = parseAreas(arguments.avoid, QStringLiteral("--avoid"));

    const QString input = pathFrom(arguments.picture);
    startWorkerThreads();
    host::PictureFile picture(input, rules.reading);
    const VXCropConstraints constraints = host::within(picture.orientedSize(), asked, input);
    QStringList warnings;
    const VXCrop analysis = arguments.map.empty()
        ? host::analysisOf(picture, rules.salience)
        : host::analysisFromMap(*host::openMap(pathFrom(arguments.map), rules.reading),
            picture.orientedSize(), warnings);
    const QImage map = analysis.map(constraints.keep);

    const auto shown = [&](const QImage& levels) {
        return arguments.stretch ? host::stretched(levels) : levels;
    };
    OutputFiles files(input, arguments.ifExists);
    if (!outputs.map.isEmpty())
        files.add(shown(map), outputs.map);
    if (!outputs.overlay.isEmpty()) {
        const QImage pixels = picture.readAll();
        const QRect window = ratio ? analysis.window(*ratio, constraints).window : QRect();
        files.add(host::drawOverlay(pixels, map, window, constraints), outputs.overlay);
    }
    if (!outputs.folder.isEmpty()) {
        host::createFolder(outputs.folder);
        for (const VXCropMap& single : analysis.methodMaps(constraints.keep))
            files.add(
                shown(single.map), QStringLiteral("%1/%2.png").arg(outputs.folder, single.method));
    }
    files.commit();
    if (!arguments.quiet)
        for (const QString& warning : warnings + picture.warnings())
            host::writeWarning(input, warning);
}

void addMapCommand(CLI::App& app, MapArguments& arguments)
{
    CLI::App* const map = app.add_subcommand("map", "Write what draws the eye as pictures");
    map->add_option("PICTURE", arguments.picture, "the picture file to read")->required();
    map->add_option("-o,--output", arguments.output, "write the salience map to this PNG file")
        ->type_name("FILE");
    map->add_option("--per-method", arguments.perMethod,
           "write the map of each method into this folder, as PNG files")
        ->type_name("DIR");
    CLI::Option* const overlay
        = map->add_option("--overlay", arguments.overlay,
                 "write the picture with the map over it as heat to this file")
              ->type_name("FILE");
    map->add_option("--ratio", arguments.ratio, "outline the crop of this shape in the overlay")
        ->type_name("W:H")
        ->needs(overlay);
    addAreaOptions(*map, arguments.keep, arguments.avoid);
    map->add_option(
           "--map", arguments.map, "take the salience map from this picture or mask instead")
        ->check(namesFile())
        ->type_name("FILE");
    map->add_flag("--stretch", arguments.stretch,
        "stretch the levels of maps to reach from black to white, for the eye");
    addIfExistsOption(*map, arguments.ifExists);
    addQuietOption(*map, arguments.quiet);
    arguments.analysis.addTo(*map);
    map->callback([&arguments] { runMap(arguments); });
}

} // namespace vxroi
