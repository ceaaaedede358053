#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vxroi {

/// One entry of a list.
struct ListEntry {
    QByteArray bytes; ///< without the separator
    qint64 number = 0; ///< from 1
    bool isTooLong = false; ///< it has more than ListReader::mostBytes and is discarded
};

/// Splits a list into its entries as they arrive.
class ListReader {
public:
    static constexpr int mostBytes = 1 << 20; ///< of an entry

    /// Opens the list.
    /// \param path "-" is standard input.
    /// \param separator what ends an entry; the last one may end with the list.
    /// \throws host::HostError when it cannot be opened.
    ListReader(const QString& path, char separator);
    ~ListReader();
    ListReader(const ListReader&) = delete;
    ListReader& operator=(const ListReader&) = delete;

    /// The next entry, without waiting; std::nullopt when it has not arrived yet, or at the end.
    /// \throws host::HostError when reading fails, or an entry is longer than a thousand times mostBytes.
    std::optional<ListEntry> next();

    /// Waits for the next entry; std::nullopt at the end.
    /// \throws host::HostError as next().
    std::optional<ListEntry> waitForNext();

    bool isAtEnd() const { return hasEnded && unread.isEmpty(); }

    /// The descriptor to wait for when the next entry has not arrived yet.
    int descriptor() const { return source; }

    /// The name of the list, for messages.
    const QString& name() const { return displayName; }

    /// The place of an entry, for messages: "list.txt, line 3".
    QString placeOf(const ListEntry& entry) const;

private:
    bool readMore();
    ListEntry take(int size);
    [[noreturn]] void throwBadList(const QString& reason) const;

    QString displayName;
    char separator;
    int source;
    QByteArray unread;
    int searched = 0; ///< how many bytes of unread are known to contain no separator
    bool hasEnded = false;
    qint64 entryCount = 0;
    qint64 discardedBytes = 0; ///< of the current entry, which is too long
};

} // namespace vxroi
