#include "OutputFiles.h"

#include "host/HostError.h"
#include "host/files/FileName.h"
#include "host/files/OutputName.h"
#include "vxroi/options/Checks.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

#include <utility>

namespace vxroi {

using host::ExitCode;
using host::HostError;

void addIfExistsOption(CLI::App& command, std::string& ifExists)
{
    command.add_option("--if-exists", ifExists, "what to do with outputs that already exist")
        ->type_name("WHAT")
        ->check(oneOf({ "fail", "overwrite" }))
        ->capture_default_str();
}

void requireFreeName(const QString& input, const QString& output, const std::string& ifExists)
{
    host::refuseToOverwriteInput(input, output);
    host::requireReplaceable(output);
    if (ifExists == "fail" && !host::isStandardStream(output) && QFileInfo::exists(output))
        host::throwIsThere(output);
}

OutputFiles::OutputFiles(QString inputPath, std::string ifExistsWish)
    : input(std::move(inputPath))
    , ifExists(std::move(ifExistsWish))
{
}

void OutputFiles::add(const QImage& image, const QString& path)
{
    requireFreeName(input, path, ifExists);
    const QString file = host::canonicalPathOf(path);
    if (paths.contains(file))
        throw HostError(ExitCode::Usage, path, QStringLiteral("named for two outputs"),
            QStringLiteral("give them different names"));
    paths.insert(file);
    files.emplace_back(image, path);
}

void OutputFiles::commit()
{
    for (host::PictureWriter& file : files)
        file.commit(ifExists == "overwrite");
}

void requirePng(const QString& path)
{
    if (QFileInfo(path).suffix().compare(QLatin1String("png"), Qt::CaseInsensitive) != 0)
        throw HostError(ExitCode::CannotCreate, path, QStringLiteral("a map is written as PNG"),
            QStringLiteral("end its name in .png"));
}

} // namespace vxroi
