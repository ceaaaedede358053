#include "Inputs.h"

#include "InputLine.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/picture/Formats.h"
#include "vxroi/options/CommonOptions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

bool hasPictureSuffix(const std::filesystem::path& path)
{
    const QString suffix = QString::fromStdString(path.extension().string()).mid(1);
    return host::formatCalled(suffix) != nullptr;
}

// A folder that cannot be read is added itself, so that its record reports the failure.
void addPicturesIn(const std::filesystem::path& folder, bool isRecursive, QStringList& paths)
{
    std::error_code error;
    const std::filesystem::directory_iterator entries(folder, error);
    if (error)
        paths.append(pathFrom(folder.string()));
    for (const std::filesystem::directory_entry& entry : entries) {
        const std::filesystem::path& path = entry.path();
        const bool isHidden = path.filename().string().front() == '.';
        const bool isFolder = entry.is_directory(error);
        if (isHidden || (isFolder && entry.is_symlink(error)))
            continue;
        if (isFolder && isRecursive)
            addPicturesIn(path, isRecursive, paths);
        else if (!isFolder && hasPictureSuffix(path))
            paths.append(pathFrom(path.string()));
    }
}

// The absolute paths of the outputs for \a paths.
QSet<QString> outputsOf(const QStringList& paths, const CropOptions& options)
{
    QSet<QString> outputs;
    if (options.output.empty())
        return outputs;
    const host::OutputName name(pathFrom(options.output));
    const QString suffix = options.writing.suffix();
    const QVector<host::CropShape> shapes = options.shapes();
    for (const QString& path : paths) {
        for (const host::CropShape& shape : shapes)
            outputs.insert(
                QFileInfo(name.nameFor(path, shape.fileName(), suffix)).absoluteFilePath());
    }
    return outputs;
}

// Whether \a path is the pipe or the terminal that the list is read from, as /dev/stdin may be: reading it as a picture
// would consume lines of the list.
bool isListItself(const QString& path, int list)
{
    struct stat pathStatus = {};
    struct stat listStatus = {};
    return stat(host::bytesOfName(path).constData(), &pathStatus) == 0
        && fstat(list, &listStatus) == 0 && !S_ISREG(listStatus.st_mode)
        && pathStatus.st_dev == listStatus.st_dev && pathStatus.st_ino == listStatus.st_ino;
}

} // namespace

QStringList picturesIn(const QString& folder, bool isRecursive)
{
    QStringList paths;
    addPicturesIn(host::bytesOfName(folder).toStdString(), isRecursive, paths);
    std::sort(paths.begin(), paths.end());
    return paths;
}

FolderInputs::FolderInputs(
    const QString& folder, bool isRecursive, const Shard& shard, const CropOptions& options)
    : root(folder)
{
    if (!QFileInfo(folder).isDir())
        throw HostError(ExitCode::MissingInput, folder, QStringLiteral("is not a folder"),
            QStringLiteral("name a folder of pictures, or give a list with --from"));
    const QStringList found = picturesIn(folder, isRecursive);
    const QSet<QString> outputs = outputsOf(found, options);
    std::copy_if(found.begin(), found.end(), std::back_inserter(paths), [&](const QString& path) {
        // Shards go by the path within the folder, which may have another path on another machine.
        return !outputs.contains(QFileInfo(path).absoluteFilePath())
            && shard.contains(QDir(folder).relativeFilePath(path));
    });
}

std::optional<Input> FolderInputs::next()
{
    if (nextIndex == paths.size())
        return std::nullopt;
    return Input { paths.at(nextIndex++) };
}

ListedInputs::ListedInputs(const QString& path, bool isNulSeparated, const Shard& part)
    : isJsonAllowed(!isNulSeparated)
    , list(path, isNulSeparated ? '\0' : '\n')
    , shard(part)
{
}

std::optional<Input> ListedInputs::next() { return nextOf(&ListReader::next); }

std::optional<Input> ListedInputs::waitForNext() { return nextOf(&ListReader::waitForNext); }

std::optional<Input> ListedInputs::nextOf(std::optional<ListEntry> (ListReader::*read)())
{
    while (const std::optional<ListEntry> entry = (list.*read)()) {
        if (entry->bytes.isEmpty() && !entry->isTooLong)
            continue;
        Input input = inputFrom(*entry, isJsonAllowed);
        input.entry = entry->bytes;
        input.place = list.placeOf(*entry);
        if (isListItself(input.path, descriptor()) || isListItself(input.map, descriptor()))
            input.failure = HostError(ExitCode::Usage, input.path,
                QStringLiteral("a picture or its map is the list itself"),
                QStringLiteral("name a file, or another pipe"));
        if (shard.contains(input.path))
            return input;
    }
    return std::nullopt;
}

} // namespace vxroi
