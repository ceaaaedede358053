#include "RecordLines.h"

#include "host/HostError.h"
#include "host/records/Json.h"

namespace vxroi {

using host::ExitCode;
using host::HostError;

RecordLines::RecordLines(const QString& path)
    : lines(path, '\n')
{
}

std::optional<host::CropRecord> RecordLines::next()
{
    while (const std::optional<ListEntry> line = lines.waitForNext()) {
        if (line->isTooLong || !line->bytes.trimmed().isEmpty())
            return recordFrom(*line);
    }
    return std::nullopt;
}

host::CropRecord RecordLines::recordFrom(const ListEntry& line) const
{
    const host::JsonObject parsed = host::parseObject(line.bytes);
    QString fault = line.isTooLong ? QStringLiteral("it is too long") : parsed.fault;
    if (fault.isEmpty()) {
        try {
            return host::CropRecord::fromJson(parsed.object);
        } catch (const HostError& refused) {
            fault = refused.reason();
        }
    }
    throw HostError(ExitCode::UnreadableInput, lines.placeOf(line),
        QStringLiteral("is not a record: %1").arg(fault),
        QStringLiteral("give what vxroi batch or crop --json wrote"));
}

} // namespace vxroi
