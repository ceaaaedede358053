#include "PictureReader.h"

#include "CodecMessages.h"
#include "HostError.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <utility>

namespace host {

namespace {

void openForReading(QFile& file)
{
    const QFileInfo info(file.fileName());
    if (!info.exists())
        throw HostError(ExitCode::MissingInput, file.fileName(), QStringLiteral("no such file"),
            QStringLiteral("check the name and the folder"));
    if (info.isDir())
        throw HostError(ExitCode::MissingInput, file.fileName(), QStringLiteral("is a folder"),
            QStringLiteral("name a picture in it"));
    if (!file.open(QIODevice::ReadOnly))
        throw HostError(ExitCode::MissingInput, file.fileName(), file.errorString(),
            QStringLiteral("check its permissions"));
    if (!file.isSequential() && file.size() == 0)
        throw HostError(ExitCode::UnreadableInput, file.fileName(),
            QStringLiteral("the file is empty"), QStringLiteral("get a complete copy"));
}

// The JPEG decoder fills what is missing with grey and calls it a success.
bool isIncomplete(const CodecMessages& messages)
{
    return messages.mention(QStringLiteral("premature end"))
        || messages.mention(QStringLiteral("bad Huffman code"));
}

} // namespace

QImage readPicture(const QString& path)
{
    QFile file(path);
    openForReading(file);

    const CodecMessages messages;
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    QImage picture = reader.read();

    if (picture.isNull() && reader.error() == QImageReader::UnsupportedFormatError)
        throw HostError(ExitCode::UnreadableInput, path,
            QStringLiteral("not a picture in a known format"),
            QStringLiteral("convert it to PNG or JPEG"));
    if (picture.isNull() || isIncomplete(messages))
        throw HostError(ExitCode::UnreadableInput, path,
            QStringLiteral("the picture is damaged or truncated"),
            QStringLiteral("get a complete copy"));
    return std::move(picture).convertToFormat(QImage::Format_ARGB32);
}

} // namespace host
