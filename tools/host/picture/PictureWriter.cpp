#include "PictureWriter.h"

#include "Encoder.h"
#include "QtPixels.h"
#include "host/FileName.h"
#include "host/HostError.h"

#include <QFileInfo>

namespace host {

namespace {

[[noreturn]] void throwNotEncoded(const vips::VError& error, const vips::VImage& picture,
    const Format& format, const QString& path, const Deadline& deadline)
{
    if (deadline.hasPassed())
        throw tooSlow(path, deadline.mostSeconds());
    if (isMissingEncoder(error))
        throw HostError(ExitCode::CannotCreate, path,
            QStringLiteral("this system has no encoder for %1").arg(QLatin1String(format.name)),
            QStringLiteral("install libheif's plugins, or choose another format"));
    throw HostError(ExitCode::CannotCreate, path,
        QStringLiteral("%1 x %2 pixels cannot be written in this format")
            .arg(picture.width())
            .arg(picture.height()),
        QStringLiteral("choose another format or a smaller size"));
}

} // namespace

void requireKnownFormat(const QString& path, const WritingRules& rules)
{
    const Format* const format = formatCalled(QFileInfo(path).suffix());
    const bool isKnown = rules.format != nullptr || isStandardStream(path)
        || (format != nullptr && isWritten(*format));
    if (!isKnown)
        throw HostError(ExitCode::CannotCreate, path,
            QStringLiteral("its suffix names no format that can be written"),
            QStringLiteral("end the name in .png or .jpg"));
}

const Format& formatOf(const QString& path, const WritingRules& rules)
{
    if (rules.format != nullptr)
        return *rules.format;
    return *formatCalled(isStandardStream(path) ? QStringLiteral("png") : QFileInfo(path).suffix());
}

PictureWriter::PictureWriter(const QImage& picture, const QString& path)
    : PictureWriter(toVipsImage(picture), path)
{
}

PictureWriter::PictureWriter(const vips::VImage& picture, const QString& path,
    const WritingRules& rules, const Deadline& deadline)
    : file((requireKnownFormat(path, rules), path))
{
    const Format& format = formatOf(path, rules);
    try {
        content = encoded(picture, format, rules, deadline);
    } catch (const vips::VError& error) {
        throwNotEncoded(error, picture, format, path, deadline);
    }
    file.write(content);
}

PictureWriter::Existing PictureWriter::existing() const
{
    QFile existing(file.path());
    if (isStandardStream(file.path()) || !existing.exists())
        return Existing::None;
    const bool isSame = existing.size() == content.size() && existing.open(QIODevice::ReadOnly)
        && existing.readAll() == content;
    return isSame ? Existing::Same : Existing::Other;
}

void refuseToOverwriteInput(const QString& input, const QString& output)
{
    const QString existing = QFileInfo(output).canonicalFilePath();
    if (!existing.isEmpty() && existing == QFileInfo(input).canonicalFilePath())
        throw HostError(ExitCode::CannotCreate, output, QStringLiteral("is the picture itself"),
            QStringLiteral("choose another name"));
}

} // namespace host
