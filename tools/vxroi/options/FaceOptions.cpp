#include "FaceOptions.h"

#include "Checks.h"
#include "CommonOptions.h"

#include "host/HostError.h"

namespace vxroi {

void FaceOptions::addTo(CLI::App& app, CLI::Option* needed)
{
    CLI::Option* const byInstalled = app.add_flag(
        "--faces", faces, "find faces with the program vxroi-faces, and keep them whole");
    CLI::Option* const byCommand
        = app.add_option("--detector", command,
                 "find faces with this command, which answers a line for each picture")
              ->check(names("command"))
              ->type_name("COMMAND")
              ->excludes(byInstalled);
    CLI::Option* const required = app.add_flag("--detector-required", isRequired,
        "refuse a picture whose faces are not known, instead of a warning");
    for (CLI::Option* const option : { byInstalled, byCommand, required }) {
        option->group("Faces");
        if (needed != nullptr)
            option->needs(needed);
    }
}

std::shared_ptr<host::FaceDetector> FaceOptions::detector() const
{
    using host::FaceDetector;
    if (isRequired && name().isEmpty())
        throw host::HostError(host::ExitCode::Usage, QStringLiteral("--detector-required"),
            QStringLiteral("there is no detector"), QStringLiteral("add --faces or --detector"));
    const auto onProblem
        = isRequired ? FaceDetector::OnProblem::Fail : FaceDetector::OnProblem::Warn;
    if (faces)
        return FaceDetector::installed(onProblem);
    return command.empty() ? nullptr : FaceDetector::ofCommand(pathFrom(command), onProblem);
}

QString FaceOptions::name() const
{
    return faces ? QStringLiteral("vxroi-faces") : pathFrom(command);
}

} // namespace vxroi
