#include "RecordLines.h"

#include "host/HostError.h"
#include "host/OutputFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

std::FILE* openRecords(const QString& path)
{
    if (host::isStandardStream(path))
        return stdin;
    std::FILE* const file = std::fopen(QFile::encodeName(path).constData(), "re");
    if (file == nullptr)
        throw HostError(ExitCode::MissingInput, path, qt_error_string(errno),
            QStringLiteral("name a file of records, or - for standard input"));
    return file;
}

} // namespace

void RecordLines::Closer::operator()(std::FILE* opened) const
{
    if (opened != stdin)
        static_cast<void>(std::fclose(opened)); // it was only read
}

RecordLines::RecordLines(const QString& path)
    : name(path)
    , file(openRecords(path))
{
}

std::optional<host::CropRecord> RecordLines::next()
{
    while (const std::optional<QByteArray> line = nextLine()) {
        if (!line->isEmpty())
            return recordFrom(*line);
    }
    return std::nullopt;
}

std::optional<QByteArray> RecordLines::nextLine()
{
    constexpr int mostBytes = 1 << 24;
    ++lineNumber;
    QByteArray line;
    int byte = std::fgetc(file.get());
    const bool hasBegun = byte != EOF;
    for (; byte != EOF && byte != '\n'; byte = std::fgetc(file.get())) {
        line.append(static_cast<char>(byte));
        if (line.size() > mostBytes)
            throwNoRecord(QStringLiteral("it does not end"));
    }
    if (std::ferror(file.get()) != 0)
        throw HostError(ExitCode::UnreadableInput, name, qt_error_string(errno),
            QStringLiteral("name a file of records, or - for standard input"));
    return hasBegun ? std::make_optional(line.trimmed()) : std::nullopt;
}

host::CropRecord RecordLines::recordFrom(const QByteArray& line) const
{
    QJsonParseError error {};
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (error.error != QJsonParseError::NoError)
        throwNoRecord(error.errorString());
    try {
        return host::CropRecord::fromJson(document.object());
    } catch (const HostError& refused) {
        throwNoRecord(refused.reason());
    }
}

void RecordLines::throwNoRecord(const QString& reason) const
{
    throw HostError(ExitCode::UnreadableInput, name,
        QStringLiteral("line %1 is no record: %2").arg(QString::number(lineNumber), reason),
        QStringLiteral("give what vxroi batch or crop --json wrote"));
}

} // namespace vxroi
