#pragma once

#include "host/CropRecord.h"

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <memory>
#include <optional>

namespace vxroi {

/// The records in a file that `vxroi batch` or `crop --json` wrote, one after the other.
class RecordLines {
public:
    /// \param path the file; "-" is standard input.
    /// \throws host::HostError when it cannot be opened.
    explicit RecordLines(const QString& path);

    /// The next record, or none at the end; empty lines are left out.
    /// \throws host::HostError when the next line is no record, or cannot be read.
    std::optional<host::CropRecord> next();

private:
    std::optional<QByteArray> nextLine();
    host::CropRecord recordFrom(const QByteArray& line) const;
    [[noreturn]] void throwNoRecord(const QString& reason) const;

    struct Closer {
        void operator()(std::FILE* opened) const;
    };
    QString name;
    std::unique_ptr<std::FILE, Closer> file;
    qint64 lineNumber = 0;
};

} // namespace vxroi
