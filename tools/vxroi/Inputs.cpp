#include "Inputs.h"

#include "InputLine.h"

#include "host/HostError.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QSet>

#include <algorithm>
#include <cstdlib>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// The absolute paths of what a run writes for \a paths.
QSet<QString> outputsOf(const QStringList& paths, const CropOptions& options)
{
    QSet<QString> outputs;
    if (options.output.empty())
        return outputs;
    const host::OutputName name(QString::fromStdString(options.output));
    for (const QString& path : paths) {
        for (const host::CropShape& shape : options.shapes())
            outputs.insert(QFileInfo(name.nameFor(path, shape)).absoluteFilePath());
    }
    return outputs;
}

std::FILE* openList(const QString& path)
{
    if (path == QLatin1String("-"))
        return stdin;
    std::FILE* const file = std::fopen(QFile::encodeName(path).constData(), "re");
    if (!file)
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("cannot be opened"),
            QStringLiteral("name a list of pictures, or - for standard input"));
    return file;
}

} // namespace

QStringList picturesIn(const QString& folder, bool isRecursive)
{
    QStringList suffixes;
    for (const QByteArray& suffix : QImageReader::supportedImageFormats())
        suffixes.append(QStringLiteral("*.") + QString::fromLatin1(suffix));
    QDirIterator files(folder, suffixes, QDir::Files,
        isRecursive ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
    QStringList paths;
    while (files.hasNext())
        paths.append(files.next());
    std::sort(paths.begin(), paths.end());
    return paths;
}

FolderInputs::FolderInputs(
    const QString& folder, bool isRecursive, const Shard& shard, const CropOptions& options)
{
    if (!QFileInfo(folder).isDir())
        throw HostError(ExitCode::MissingInput, folder, QStringLiteral("is no folder"),
            QStringLiteral("name a folder of pictures, or give a list with --from"));
    const QStringList found = picturesIn(folder, isRecursive);
    const QSet<QString> outputs = outputsOf(found, options);
    std::copy_if(found.begin(), found.end(), std::back_inserter(paths), [&](const QString& path) {
        // By the name within the folder: the folder may lie elsewhere on another machine.
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

void ListedInputs::Closer::operator()(std::FILE* file) const
{
    if (file != stdin)
        std::fclose(file);
}

ListedInputs::ListedInputs(const QString& path, bool isNulSeparated, const Shard& part)
    : list(openList(path))
    , separator(isNulSeparated ? '\0' : '\n')
    , shard(part)
{
}

std::optional<Input> ListedInputs::next()
{
    while (const std::optional<QByteArray> entry = nextEntry()) {
        if (entry->isEmpty())
            continue;
        const bool isJson = separator == '\n' && entry->startsWith('{');
        const Input input
            = isJson ? inputFromJson(*entry, entryNumber) : Input { QString::fromUtf8(*entry) };
        if (shard.contains(input.path))
            return input;
    }
    return std::nullopt;
}

std::optional<QByteArray> ListedInputs::nextEntry()
{
    char* bytes = nullptr;
    size_t capacity = 0;
    const ssize_t length = getdelim(&bytes, &capacity, separator, list.get());
    const std::unique_ptr<char, decltype(&std::free)> owner(bytes, &std::free);
    if (length < 0)
        return std::nullopt;
    ++entryNumber;
    QByteArray entry(bytes, static_cast<int>(length));
    if (entry.endsWith(separator))
        entry.chop(1);
    if (separator == '\n' && entry.endsWith('\r'))
        entry.chop(1);
    return entry;
}

} // namespace vxroi
