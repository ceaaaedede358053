#include "CommonOptions.h"

#include "Areas.h"
#include "Checks.h"
#include "host/FileName.h"

namespace vxroi {

void addIfExistsOption(CLI::App& command, host::IfExists& ifExists)
{
    addChoice<host::IfExists>(command, "--if-exists", ifExists,
        { { "fail", host::IfExists::Fail }, { "overwrite", host::IfExists::Overwrite } },
        "what to do with outputs that already exist");
}

void addMapsOption(CLI::App& command, std::string& folder)
{
    command
        .add_option("--maps", folder,
            "keep the map of each picture in this folder, and take it from there the next time")
        ->check(names("file"))
        ->type_name("DIR");
}

std::shared_ptr<const host::MapStore> mapsIn(const std::string& folder)
{
    return folder.empty() ? nullptr : std::make_shared<host::MapStore>(pathFrom(folder));
}

void addQuietOption(CLI::App& command, bool& quiet)
{
    command.add_flag(
        "-q,--quiet", quiet, "print nothing to stderr but why the whole command failed");
}

void addAreaOptions(CLI::App& command, host::Constraints& constraints)
{
    const auto add = [&](const char* name, QVector<host::Area>& areas, const char* text) {
        const auto take = [&areas, name](const std::string& area) {
            areas.append(parseArea(QString::fromStdString(area), QLatin1String(name)));
        };
        addRepeated(command, name, take, text)->type_name("X,Y,W,H");
    };
    add("--keep", constraints.keep, "an area that the crop should hold, in pixels or percent");
    add("--avoid", constraints.avoid,
        "an area that the crop should leave out, in pixels or percent");
}

QString pathFrom(const std::string& argument)
{
    return host::textOfName(QByteArray::fromStdString(argument));
}

} // namespace vxroi
