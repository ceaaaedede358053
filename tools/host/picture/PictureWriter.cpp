#include "PictureWriter.h"

#include "../HostError.h"
#include "Encoder.h"
#include "QtPixels.h"

#include <QFileInfo>

namespace host {

namespace {

[[noreturn]] void throwWriteFailed(const QString& path, const QString& reason)
{
    throw HostError(ExitCode::WriteFailed, path, reason,
        QStringLiteral("make room on the disk or choose another folder"));
}

} // namespace

void requireKnownFormat(const QString& path)
{
    if (!isWritten(QFileInfo(path).suffix()))
        throw HostError(ExitCode::CannotCreate, path,
            QStringLiteral("its suffix names no format that can be written"),
            QStringLiteral("end the name in .png or .jpg"));
}

void requireReplaceable(const QString& output)
{
    const QFileInfo existing(output);
    if (existing.exists() && !existing.isFile())
        throw HostError(ExitCode::CannotCreate, output, QStringLiteral("is there and is no file"),
            QStringLiteral("choose another name"));
}

PictureWriter::PictureWriter(const QImage& picture, const QString& path)
    : PictureWriter(toVipsImage(picture), path)
{
}

PictureWriter::PictureWriter(const vips::VImage& picture, const QString& path)
    : file(path)
{
    requireKnownFormat(path);
    requireReplaceable(path);
    if (!file.open(QIODevice::WriteOnly))
        throw HostError(ExitCode::CannotCreate, path, file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));
    try {
        content = encoded(picture, QFileInfo(path).suffix());
    } catch (const vips::VError&) {
        throw HostError(ExitCode::CannotCreate, path,
            QStringLiteral("%1 x %2 pixels cannot be written in this format")
                .arg(picture.width())
                .arg(picture.height()),
            QStringLiteral("choose another format or a smaller size"));
    }
    // A disk that fills up shortens what is written, and only then refuses to write.
    const bool isWhole = file.write(content) == content.size() && file.flush();
    if (!isWhole)
        throwWriteFailed(path,
            file.error() == QFileDevice::NoError ? QStringLiteral("no room left")
                                                 : file.errorString());
}

bool PictureWriter::differsFromExisting() const
{
    QFile existing(file.fileName());
    return existing.exists()
        && (existing.size() != content.size() || !existing.open(QIODevice::ReadOnly)
            || existing.readAll() != content);
}

void PictureWriter::commit()
{
    if (!file.commit())
        throwWriteFailed(file.fileName(), file.errorString());
}

void refuseToOverwriteInput(const QString& input, const QString& output)
{
    const QString existing = QFileInfo(output).canonicalFilePath();
    if (!existing.isEmpty() && existing == QFileInfo(input).canonicalFilePath())
        throw HostError(ExitCode::CannotCreate, output, QStringLiteral("is the picture itself"),
            QStringLiteral("choose another name"));
}

} // namespace host
