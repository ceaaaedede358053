#include "CommandLine.h"

#include "BatchCommand.h"
#include "ClusterCommand.h"
#include "CropCommand.h"
#include "MapCommand.h"
#include "OutputFiles.h"
#include "ReportCommand.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

const char* const exitCodes
    = "Exit codes: 0 done, 1 some of several pictures failed, 64 wrong command line,\n65 the file "
      "is "
      "no picture or a damaged one, 66 no such file, 70 internal error,\n73 the output cannot be "
      "created, 74 writing failed, 130 interrupted.";

void addCropCommand(CLI::App& app, CropArguments& arguments, ExitCode& exitCode)
{
    CLI::App* const crop
        = app.add_subcommand("crop", "Choose the windows to keep of pictures, and crop them");
    crop->add_option("PICTURE", arguments.pictures, "the picture files to read")->required();
    arguments.crop.addTo(*crop);
    crop->add_flag("--json", arguments.json, "print one record for each picture, as JSON");
    crop->add_option("--emit", arguments.emit,
            "print windows as geometry, WxH+X+Y in pixels, or as css, object-position")
        ->type_name("WHAT")
        ->check(CLI::IsMember({ "geometry", "css" }))
        ->capture_default_str();
    arguments.analysis.addTo(*crop);
    crop->callback([&] { exitCode = runCrop(arguments); });
}

void addBatchCommand(CLI::App& app, BatchArguments& arguments, ExitCode& exitCode)
{
    CLI::App* const batch = app.add_subcommand(
        "batch", "Crop the pictures of a folder or a list, and print a JSON record for each");
    batch->add_option("FOLDER", arguments.folder, "the folder of pictures");
    batch->add_flag("-r,--recursive", arguments.recursive, "also the folders within it");
    CLI::Option* const from
        = batch
              ->add_option("--from", arguments.from,
                  "read paths, or inputs as JSON, from the lines of this file; - is standard input")
              ->type_name("FILE");
    batch->add_flag("-0,--null", arguments.nulSeparated, "paths of the list end in NUL")
        ->needs(from);
    arguments.crop.addTo(*batch);
    batch
        ->add_option("--resume", arguments.resume,
            "write records to this file, behind those of an earlier run that it holds")
        ->type_name("FILE");
    batch
        ->add_option("--shard", arguments.shard,
            "crop only this part of the list, such as 2/8; auto asks the array job")
        ->type_name("I/N");
    batch
        ->add_option("-j,--jobs", arguments.jobs, "pictures at a time (default: one for each core)")
        ->type_name("N")
        ->check(CLI::Range(1, 1024));
    batch->add_flag("-q,--quiet", arguments.quiet, "say nothing about progress and failures");
    arguments.analysis.addTo(*batch);
    batch->callback([&] { exitCode = runBatch(arguments); });
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
    map->add_option("--keep", arguments.keep, "a very important area, in pixels")
        ->type_name("X,Y,W,H")
        ->expected(1)
        ->take_all();
    map->add_flag("--stretch", arguments.stretch,
        "stretch the levels of maps to reach from black to white, for the eye");
    addIfExistsOption(*map, arguments.ifExists);
    arguments.analysis.addTo(*map);
    map->callback([&arguments] { runMap(arguments); });
}

void addClusterCommand(CLI::App& app, ClusterArguments& arguments)
{
    CLI::App* const cluster = app.add_subcommand(
        "cluster", "Print how salient each cell of a grid over a picture is, as JSON");
    cluster->add_option("PICTURE", arguments.picture, "the picture file to read")->required();
    cluster->add_option("--grid", arguments.grid, "columns and rows of the grid")
        ->type_name("CxR")
        ->capture_default_str();
    cluster->add_option("-o,--output", arguments.output, "paint the cells into this PNG file")
        ->type_name("FILE");
    addIfExistsOption(*cluster, arguments.ifExists);
    arguments.analysis.addTo(*cluster);
    cluster->callback([&arguments] { runCluster(arguments); });
}

void addReportCommand(CLI::App& app, ReportArguments& arguments, ExitCode& exitCode)
{
    CLI::App* const report = app.add_subcommand(
        "report", "Write a page that shows the crops of many pictures and why they were chosen");
    report->add_option("PICTURE", arguments.inputs, "picture files, and folders of them")
        ->required();
    report->add_flag("-r,--recursive", arguments.recursive, "also the folders within folders");
    report->add_option("-o,--output", arguments.output, "write the page to this HTML file")
        ->type_name("FILE")
        ->required();
    report->add_option("--ratio", arguments.ratios, "shapes of the crops, such as 16:9 or 1:1,4:5")
        ->type_name("W:H,...")
        ->capture_default_str();
    addIfExistsOption(*report, arguments.ifExists);
    arguments.analysis.addTo(*report);
    report->callback([&] { exitCode = runReport(arguments); });
}

ExitCode fail(ExitCode code, const std::string& line)
{
    std::cerr << "vxroi: " << line << '\n';
    return code;
}

ExitCode reportParseError(const CLI::App& app, const CLI::ParseError& error)
{
    if (error.get_exit_code() == 0) { // --help and --version arrive as errors of code 0
        app.exit(error);
        return ExitCode::Success;
    }
    const QString line = host::onOneLine(QString::fromUtf8(error.what()));
    return fail(ExitCode::Usage, line.toStdString() + "; see vxroi --help");
}

} // namespace

ExitCode runCommandLine(int argc, char** argv)
try {
    CLI::App app("Finds what draws the eye in a picture, and the crop that keeps it.", "vxroi");
    app.set_version_flag("--version", "vxroi " VXROI_VERSION);
    app.footer(exitCodes);
    app.require_subcommand(1);
    ExitCode exitCode = ExitCode::Success;
    CropArguments crop;
    addCropCommand(app, crop, exitCode);
    BatchArguments batch;
    addBatchCommand(app, batch, exitCode);
    MapArguments map;
    addMapCommand(app, map);
    ClusterArguments cluster;
    addClusterCommand(app, cluster);
    ReportArguments report;
    addReportCommand(app, report, exitCode);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return reportParseError(app, error);
    }
    if (!std::cout.flush())
        throw HostError(ExitCode::WriteFailed, QStringLiteral("standard output"),
            QStringLiteral("cannot be written"), QStringLiteral("check where it leads"));
    return exitCode;
} catch (const HostError& error) {
    return fail(error.code(), error.what());
} catch (const std::exception& error) {
    return fail(ExitCode::Internal, error.what() + std::string("; please report this"));
}

} // namespace vxroi
