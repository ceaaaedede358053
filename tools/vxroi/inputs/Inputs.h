#pragma once

#include "ListReader.h"
#include "Shard.h"
#include "Tasks.h"

#include <QStringList>

#include <optional>

namespace vxroi {

/// The inputs of a batch, one after another.
class Inputs {
public:
    Inputs() = default;
    Inputs(const Inputs&) = delete;
    Inputs& operator=(const Inputs&) = delete;
    virtual ~Inputs() = default;

    /// The next input; std::nullopt when none has arrived yet, or at the end.
    virtual std::optional<Input> next() = 0;

    virtual bool isAtEnd() const = 0;

    /// The descriptor to wait for when there is no next input yet.
    virtual int descriptor() const = 0;

    /// The number of inputs; -1 when it is not known in advance.
    virtual qint64 count() const = 0;

    /// The name of the folder or the list.
    virtual QString name() const = 0;
};

/// The pictures in a folder, sorted by the UTF-16 units of their paths, whatever the locale. Hidden files, files whose
/// suffix is not that of a picture format, and links to folders are left out.
/// \param isRecursive whether to include the folders within it.
QStringList picturesIn(const QString& folder, bool isRecursive);

/// The pictures in a folder, as picturesIn() lists them.
class FolderInputs final : public Inputs {
public:
    /// \param options the options of the run: pictures that are outputs of other pictures in the folder are left out,
    /// so that the inputs are the same before and after a run.
    /// \throws HostError when the folder does not exist.
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

/// A list of inputs in a file: a path or an object on each line; see inputFrom().
class ListedInputs final : public Inputs {
public:
    /// \param path the list; "-" is standard input.
    /// \param isNulSeparated whether entries end in NUL; then all of them are paths.
    /// \throws HostError when the list cannot be opened.
    ListedInputs(const QString& path, bool isNulSeparated, const Shard& part);

    std::optional<Input> next() override;

    /// Waits for the next input; std::nullopt at the end.
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
