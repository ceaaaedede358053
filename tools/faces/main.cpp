#include "FacesCommand.h"
#include "FasterVariant.h"
#include "vxroi/Program.h"

#include <CLI/CLI.hpp>

namespace {

const char* const exitCodes
    = R"(Exit codes: 0 done, 1 some of several pictures failed, 64 wrong command line,
65 the file is not a picture, or is damaged, 66 no such file,
70 no memory, no threads or an internal error, 74 writing failed,
130 interrupted, 141 nobody reads standard output any more.)";

host::ExitCode runCommand(int argc, char** argv)
{
    CLI::App app("Finds the faces in pictures, and prints a line of JSON for each.", "vxroi-faces");
    app.set_version_flag("--version", "vxroi-faces " VXROI_VERSION);
    app.footer(exitCodes);
    host::ExitCode exitCode = host::ExitCode::Success;
    faces::FacesArguments arguments;
    arguments.addTo(app);
    app.callback([&] { exitCode = faces::runFaces(arguments); });
    return vxroi::parse(app, argc, argv, exitCode);
}

} // namespace

int main(int argc, char** argv)
{
    faces::becomeFasterVariant(argv);
    return vxroi::runProgram(argc, argv, [=] { return runCommand(argc, argv); });
}
