#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vxroi {

/// One entry of a list.
struct ListEntry {
    QByteArray bytes; ///< without its end
    qint64 number = 0; ///< from 1
    bool isTooLong = false; ///< it has more than ListReader::mostBytes, which are not kept
};

/// Takes a list apart into its entries as they arrive, without waiting for more.
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

    /// The next entry; none when it has not arrived yet, or there are no more.
    /// \throws host::HostError when reading fails, or an entry has more than a thousand times mostBytes.
    std::optional<ListEntry> next();

    /// The next entry, as soon as it has arrived; none when there are no more.
    /// \throws host::HostError as next().
    std::optional<ListEntry> waitForNext();

    bool isAtEnd() const { return hasEnded && unread.isEmpty(); }

    /// What to wait for when there is no next entry yet.
    int descriptor() const { return source; }

    /// The list, for people.
    const QString& name() const { return called; }

    /// Where an entry stands, for people: "list.txt, line 3".
    QString placeOf(const ListEntry& entry) const;

private:
    bool readMore();
    ListEntry take(int size);
    [[noreturn]] void throwBadList(const QString& reason) const;

    QString called;
    char separator;
    int source;
    QByteArray unread;
    int searched = 0; ///< bytes of unread that hold no separator
    bool hasEnded = false;
    qint64 entryCount = 0;
    qint64 discardedBytes = 0; ///< of an entry that is too long
};

} // namespace vxroi
