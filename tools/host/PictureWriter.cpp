#include "PictureWriter.h"

#include "CodecMessages.h"
#include "HostError.h"

#include <QFileInfo>
#include <QImageWriter>

namespace host {

namespace {

// Well above the codec's default of 75, so that a crop does not look worse than its source.
constexpr int jpegQuality = 93;

QByteArray formatOf(const QString& path)
{
    QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    if (!QImageWriter::supportedImageFormats().contains(format))
        throw HostError(ExitCode::CannotCreate, path,
            QStringLiteral("its suffix names no format that can be written"),
            QStringLiteral("end the name in .png or .jpg"));
    return format;
}

// Lets a codec write to the end although the file fails: Qt's PNG codec leaks when it is stopped.
// The file keeps its error, to be asked for afterwards.
class UnfailingDevice : public QIODevice {
public:
    explicit UnfailingDevice(QSaveFile& target)
        : file(target)
    {
        open(QIODevice::WriteOnly);
    }
    bool seek(qint64 position) override { return QIODevice::seek(position) && file.seek(position); }
    qint64 size() const override { return file.size(); }

protected:
    qint64 readData(char* /*bytes*/, qint64 /*count*/) override { return -1; }
    qint64 writeData(const char* bytes, qint64 count) override
    {
        if (file.error() == QFileDevice::NoError)
            file.write(bytes, count);
        return count;
    }

private:
    QSaveFile& file;
};

[[noreturn]] void throwWriteFailed(const QString& path, const QString& reason)
{
    throw HostError(ExitCode::WriteFailed, path, reason,
        QStringLiteral("make room on the disk or choose another folder"));
}

} // namespace

PictureWriter::PictureWriter(const QImage& picture, const QString& path)
    : file(path)
{
    const QByteArray format = formatOf(path);
    if (!file.open(QIODevice::WriteOnly))
        throw HostError(ExitCode::CannotCreate, path, file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));

    const CodecMessages messages;
    UnfailingDevice device(file);
    QImageWriter writer(&device, format);
    if (format == "jpg" || format == "jpeg")
        writer.setQuality(jpegQuality);
    const bool encoded = writer.write(picture);
    file.flush();
    if (file.error() != QFileDevice::NoError)
        throwWriteFailed(path, file.errorString());
    if (!encoded)
        throwWriteFailed(path, writer.errorString());
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
