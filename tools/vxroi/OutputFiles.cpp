#include "OutputFiles.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/files/OutputName.h"

#include <QFileInfo>

#include <utility>

namespace vxroi {

using host::ExitCode;
using host::HostError;

void requireFreeName(const QString& input, const QString& output, host::IfExists ifExists)
{
    host::refuseToOverwriteInput(input, output);
    host::requireReplaceable(output);
    if (ifExists == host::IfExists::Fail && !host::isStandardStream(output)
        && QFileInfo::exists(output))
        host::throwAlreadyExists(output);
}

OutputFiles::OutputFiles(QString inputPath, host::IfExists ifOutputsExist)
    : input(std::move(inputPath))
    , ifExists(ifOutputsExist)
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
        file.commit(ifExists == host::IfExists::Overwrite);
}

void requirePng(const QString& path)
{
    if (QFileInfo(path).suffix().compare(QLatin1String("png"), Qt::CaseInsensitive) != 0)
        throw HostError(ExitCode::CannotCreate, path, QStringLiteral("a map is written as PNG"),
            QStringLiteral("end its name in .png"));
}

} // namespace vxroi
