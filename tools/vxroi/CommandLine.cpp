#include "CommandLine.h"

#include "CropCommand.h"
#include "MapCommand.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

const char* const exitCodes
    = "Exit codes: 0 done, 64 wrong command line, 65 the file is no picture "
      "or a damaged one,\n66 no such file, 70 internal error, 73 the output "
      "cannot be created, 74 writing failed.";

CLI::App* addPictureCommand(
    CLI::App& app, const std::string& name, const std::string& help, std::string& picture)
{
    CLI::App* const command = app.add_subcommand(name, help);
    command->add_option("PICTURE", picture, "the picture file to read")->required();
    return command;
}

void addCropCommand(CLI::App& app, CropArguments& arguments)
{
    CLI::App* const crop = addPictureCommand(
        app, "crop", "Print the window to keep, as WxH+X+Y in pixels", arguments.picture);
    crop->add_option("--ratio", arguments.ratio, "shape of the window, such as 16:9 or 1.91:1")
        ->type_name("W:H")
        ->required();
    crop->add_option("-o,--output", arguments.output, "write the cropped picture to this file")
        ->type_name("FILE");
    crop->callback([&arguments] { runCrop(arguments); });
}

void addMapCommand(CLI::App& app, MapArguments& arguments)
{
    CLI::App* const map
        = addPictureCommand(app, "map", "Write what draws the eye as pictures", arguments.picture);
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
    map->callback([&arguments] { runMap(arguments); });
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
    CropArguments crop;
    addCropCommand(app, crop);
    MapArguments map;
    addMapCommand(app, map);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return reportParseError(app, error);
    }
    if (!std::cout.flush())
        throw HostError(ExitCode::WriteFailed, QStringLiteral("standard output"),
            QStringLiteral("cannot be written"), QStringLiteral("check where it leads"));
    return ExitCode::Success;
} catch (const HostError& error) {
    return fail(error.code(), error.what());
} catch (const std::exception& error) {
    return fail(ExitCode::Internal, error.what() + std::string("; please report this"));
}

} // namespace vxroi
