#include "MapCommand.h"

#include "OutputFiles.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"
#include "host/crop/Overlay.h"
#include "host/crop/SalienceMap.h"
#include "vxroi/concurrency/WorkerThreads.h"
#include "vxroi/options/Checks.h"
#include "vxroi/options/CommonOptions.h"
#include "vxroi/options/Shapes.h"

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// The paths of the outputs, of which at least one is named.
struct MapOutputs {
    explicit MapOutputs(const MapArguments& arguments)
        : map(pathFrom(arguments.output))
        , overlay(pathFrom(arguments.overlay))
        , folder(pathFrom(arguments.perMethod))
    {
        if (map.isEmpty() && overlay.isEmpty() && folder.isEmpty())
            throw HostError(ExitCode::Usage, QStringLiteral("map"),
                QStringLiteral("no output given"),
                QStringLiteral("add --output, --overlay or --per-method"));
        if (!map.isEmpty() && !host::isStandardStream(map))
            requirePng(map);
    }

    QString map;
    QString overlay;
    QString folder; ///< of the maps of single methods
};

// The constraints of the crop in the overlay. Why faces are not known is added to \a warnings.
VXCropConstraints constraintsOf(
    const MapArguments& arguments, const host::PictureFile& picture, QStringList& warnings)
{
    VXCropConstraints constraints
        = host::within(picture.orientedSize(), arguments.constraints, picture.path());
    if (const std::shared_ptr<host::FaceDetector> detector = arguments.faces.detector()) {
        const host::Detection detection
            = detector->detect(picture.path(), arguments.analysis.rules.reading.mostSeconds);
        constraints.faces = host::boxesOf(detection.faces);
        if (!detection.problem.isEmpty())
            warnings.append(detection.problem);
    }
    return constraints;
}

} // namespace

void runMap(const MapArguments& arguments)
{
    const MapOutputs outputs(arguments);
    const QString input = pathFrom(arguments.picture);
    startWorkerThreads();
    host::Analysis analysis(input, arguments.analysis.rules, pathFrom(arguments.map));
    QStringList warnings;
    const VXCropConstraints constraints = constraintsOf(arguments, analysis.picture(), warnings);
    const VXCrop analysed = analysis.run();
    const QImage map = analysed.map(constraints.keep);

    const auto shown = [&](const QImage& levels) {
        return arguments.stretch ? host::stretched(levels) : levels;
    };
    OutputFiles files(input, arguments.ifExists);
    if (!outputs.map.isEmpty())
        files.add(shown(map), outputs.map);
    if (!outputs.overlay.isEmpty()) {
        const QImage pixels = analysis.picture().readAll();
        const QRect window
            = arguments.ratio ? analysed.window(*arguments.ratio, constraints).window : QRect();
        files.add(host::drawOverlay(pixels, map, window, constraints), outputs.overlay);
    }
    if (!outputs.folder.isEmpty()) {
        host::createFolder(outputs.folder);
        for (const VXCropMap& single : analysed.methodMaps(constraints.keep))
            files.add(
                shown(single.map), QStringLiteral("%1/%2.png").arg(outputs.folder, single.method));
    }
    files.commit();
    warnings += analysis.warnings();
    if (!arguments.quiet)
        for (const QString& warning : warnings)
            host::writeWarning(input, warning);
}

void addMapCommand(CLI::App& app, MapArguments& arguments)
{
    CLI::App* const map = app.add_subcommand("map", "Write the salience maps of a picture");
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
    const auto takeRatio = [&arguments](const std::string& ratio) {
        arguments.ratio = parseRatio(QString::fromStdString(ratio));
    };
    map->add_option_function<std::string>(
           "--ratio", takeRatio, "outline the crop of this shape in the overlay")
        ->type_name("W:H")
        ->needs(overlay);
    addAreaOptions(*map, arguments.constraints);
    arguments.faces.addTo(*map, overlay);
    map->add_option(
           "--map", arguments.map, "take the salience map from this picture or mask instead")
        ->check(names("file"))
        ->type_name("FILE");
    map->add_flag(
        "--stretch", arguments.stretch, "stretch the levels of maps to reach from black to white");
    addIfExistsOption(*map, arguments.ifExists);
    addQuietOption(*map, arguments.quiet);
    arguments.analysis.addTo(*map);
    map->callback([&arguments] { runMap(arguments); });
}

} // namespace vxroi
