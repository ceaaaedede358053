#include "PictureWriter.h"

#include "CodecMessages.h"
#include "HostError.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFileInfo>
#include <QImageWriter>
#include <QList>
#include <QPainter>

namespace host {

namespace {

// Well above the codec's default of 75, so that a crop does not look worse than its source.
constexpr int jpegQuality = 93;

QImage withoutTransparency(const QImage& picture)
{
    if (!picture.hasAlphaChannel())
        return picture;
    QImage opaque(picture.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(0, 0, picture);
    opaque.setColorSpace(picture.colorSpace());
    opaque.setDotsPerMeterX(picture.dotsPerMeterX());
    opaque.setDotsPerMeterY(picture.dotsPerMeterY());
    return opaque;
}

[[noreturn]] void throwWriteFailed(const QString& path, const QString& reason)
{
    throw HostError(ExitCode::WriteFailed, path, reason,
        QStringLiteral("make room on the disk or choose another folder"));
}

} // namespace

QByteArray formatOf(const QString& path)
{
    // Others would change the size or drop the colours without a word.
    static const QList<QByteArray> formats { "bmp", "jpeg", "jpg", "png", "ppm", "tif", "tiff",
        "webp" };
    QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    if (!formats.contains(format) || !QImageWriter::supportedImageFormats().contains(format))
        throw HostError(ExitCode::CannotCreate, path,
            QStringLiteral("its suffix names no format that can be written"),
            QStringLiteral("end the name in .png or .jpg"));
    return format;
}

void requireReplaceable(const QString& output)
{
    const QFileInfo existing(output);
    if (existing.exists() && !existing.isFile())
        throw HostError(ExitCode::CannotCreate, output, QStringLiteral("is there and is no file"),
            QStringLiteral("choose another name"));
}

PictureWriter::PictureWriter(const QImage& picture, const QString& path)
    : file(path)
{
    const QByteArray format = formatOf(path);
    requireReplaceable(path);
    if (!file.open(QIODevice::WriteOnly))
        throw HostError(ExitCode::CannotCreate, path, file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));

    // By way of memory: Qt's PNG codec leaks when a file fails below it.
    {
        const CodecMessages messages;
        QBuffer buffer(&content);
        QImageWriter writer(&buffer, format);
        const bool isJpeg = format == "jpg" || format == "jpeg";
        if (isJpeg)
            writer.setQuality(jpegQuality);
        if (!writer.write(isJpeg ? withoutTransparency(picture) : picture))
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
