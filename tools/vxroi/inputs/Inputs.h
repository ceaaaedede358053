#pragma once

#include "ListReader.h"
#include "Shard.h"
#include "Tasks.h"

#include <QStringList>

#include <optional>

namespace vxroi {

/// The inputs of a batch, one after the other.
class Inputs {
public:
    Inputs() = default;
    Inputs(const Inputs&) = delete;
    Inputs& operator=(const Inputs&) = delete;
    virtual ~Inputs() = default;

    /// The next input; none when there is none yet, or at the end.
    virtual std::optional<Input> next() = 0;

    virtual bool isAtEnd() const = 0;

    /// The descriptor to wait for when there is no next input yet.
    virtual int descriptor() const = 0;

    /// How many there are in all; -1 when that is not known beforehand.
    virtual qint64 count() const = 0;

    /// Where they come from.
    virtual QString name() const = 0;
};

/// The pictures in a folder, in the order of their names' code points; hidden files are left out, and
/// so are files whose suffix names no picture format, and links to folders.
/// \param isRecursive also in the folders within it.
QStringList picturesIn(const QString& folder, bool isRecursive);

/// The pictures in a folder, as picturesIn() lists them.
class FolderInputs final : public Inputs {
public:
    /// \param options those of the run: pictures that are outputs of other pictures in the folder are
    /// left out, so that the list is the same before and after a run.
    /// \throws HostError when there is no such folder.
    FolderInputs(
        const QString& folder, bool isRecursive, const Shard& shard, const CropOptions& options);

    std::optional<Input> next() override;
    bool isAtEnd() const override { return nextIndex == paths.size(); }
    int descriptor() const override { return -1; }
    qint64 count() const override { return paths.size(); }
    QString name() const override { return root; }

private:
    QString root;
    QStringList paths;
    int nextIndex = 0;
};

/// A list of inputs in a file: a path on each line, or an object that inputFromJson() reads.
class ListedInputs final : public Inputs {
public:
    /// \param path the list; "-" is standard input.
    /// \param isNulSeparated entries end in a NUL and are paths, whatever they look like.
    /// \throws HostError when the list cannot be opened.
    ListedInputs(const QString& path, bool isNulSeparated, const Shard& part);

    std::optional<Input> next() override;

    /// The next input, as soon as it has arrived; none when there are no more.
    std::optional<Input> waitForNext();

    bool isAtEnd() const override { return list.isAtEnd(); }
    int descriptor() const override { return list.descriptor(); }
    qint64 count() const override { return -1; }
    QString name() const override { return list.name(); }

private:
    std::optional<Input> nextOf(std::optional<ListEntry> (ListReader::*read)());

    bool isJsonAllowed;
    ListReader list;
    Shard shard;
};

} // namespace vxroi
