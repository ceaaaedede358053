#include "PictureReader.h"

#include "CodecMessages.h"
#include "HostError.h"
#include "SalienceMap.h"

#include <QBuffer>
#include <QColorSpace>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QTransform>

#include <utility>

namespace host {

namespace {

[[noreturn]] void throwTooLarge(const QString& path, qint64 mostBytes)
{
    throw HostError(ExitCode::UnreadableInput, path,
        QStringLiteral("the file has more than %1 bytes").arg(mostBytes),
        QStringLiteral("allow more with --max-bytes"));
}

// A pipe is read to its end, because a decoder may begin anew.
std::unique_ptr<QIODevice> contentOf(QIODevice& pipe, const QString& path, qint64 mostBytes)
{
    auto content = std::make_unique<QBuffer>();
    content->open(QIODevice::ReadWrite);
    while (content->size() <= mostBytes) {
        const QByteArray part = pipe.read(1 << 20);
        if (part.isEmpty())
            break;
        content->write(part);
    }
    if (content->size() > mostBytes)
        throwTooLarge(path, mostBytes);
    content->seek(0);
    return content;
}

std::unique_ptr<QIODevice> openForReading(const QString& path, qint64 mostBytes)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("no such file"),
            QStringLiteral("check the name and the folder"));
    if (info.isDir())
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("is a folder"),
            QStringLiteral("name a picture in it"));
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        throw HostError(ExitCode::MissingInput, path, file->errorString(),
            QStringLiteral("check its permissions"));
    if (file->size() > mostBytes)
        throwTooLarge(path, mostBytes);
    std::unique_ptr<QIODevice> device = std::move(file);
    if (device->isSequential())
        device = contentOf(*device, path, mostBytes);
    if (device->size() == 0)
        throw HostError(ExitCode::UnreadableInput, path, QStringLiteral("the file is empty"),
            QStringLiteral("get a complete copy"));
    return device;
}

// Whether a JPEG has four channels: its frame header says so, behind any number of other segments.
bool isCmykJpeg(QIODevice& device)
{
    QDataStream stream(&device);
    quint16 marker = 0;
    stream >> marker;
    while (stream.status() == QDataStream::Ok) {
        quint16 length = 0;
        stream >> marker >> length;
        const int kind = marker & 0xFF;
        const bool isFrame
            = kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
        if (isFrame) {
            quint8 channels = 0;
            stream.skipRawData(5); // depth, height and width
            stream >> channels;
            return stream.status() == QDataStream::Ok && channels == 4;
        }
        if (marker < 0xFF00 || length < 2 || stream.skipRawData(length - 2) != length - 2)
            return false;
    }
    return false;
}

// The JPEG decoder fills what is missing with grey and calls it a success.
bool isIncomplete(const CodecMessages& messages)
{
    return messages.mention(QStringLiteral("premature end"))
        || messages.mention(QStringLiteral("bad Huffman code"));
}

[[noreturn]] void throwDamaged(const QString& path)
{
    throw HostError(ExitCode::UnreadableInput, path,
        QStringLiteral("the picture is damaged or truncated"),
        QStringLiteral("get a complete copy"));
}

void prepare(QImageReader& reader) { reader.setDecideFormatFromContent(true); }

bool turns(QImageIOHandler::Transformations transformation)
{
    return transformation.testFlag(QImageIOHandler::TransformationRotate90);
}

// Qt's own turning of what it reads would lose the colour profile and the resolution.
QImage orientedBy(QImageIOHandler::Transformations transformation, QImage stored)
{
    QImage picture
        = std::move(stored).mirrored(transformation.testFlag(QImageIOHandler::TransformationMirror),
            transformation.testFlag(QImageIOHandler::TransformationFlip));
    if (!turns(transformation))
        return picture;
    QImage turned = picture.transformed(QTransform().rotate(90));
    turned.setColorSpace(picture.colorSpace());
    turned.setDotsPerMeterX(picture.dotsPerMeterY());
    turned.setDotsPerMeterY(picture.dotsPerMeterX());
    return turned;
}

} // namespace

PictureFile::PictureFile(const QString& path, const ReadingRules& rules)
    : name(path)
    , readingRules(rules)
    , device(openForReading(path, rules.mostBytes))
{
    {
        const CodecMessages messages;
        QImageReader reader(device.get());
        prepare(reader);
        formatName = QString::fromLatin1(reader.format());
        if (!reader.canRead())
            throw HostError(ExitCode::UnreadableInput, path,
                QStringLiteral("not a picture in a known format"),
                QStringLiteral("convert it to PNG or JPEG"));
        stored = reader.size();
        transformation = reader.transformation();
        if (reader.supportsAnimation() && reader.imageCount() > 1)
            warn(QStringLiteral("animated: only the first frame is used"));
    }
    // Some headers do not tell the size.
    if (!stored.isValid())
        stored = decode(QSize()).size();
    const qint64 pixels = qint64 { stored.width() } * stored.height();
    if (pixels > rules.mostPixels)
        throw HostError(ExitCode::UnreadableInput, path,
            QStringLiteral("%1 x %2 pixels are too many").arg(stored.width()).arg(stored.height()),
            QStringLiteral("allow them with --max-pixels %1").arg(pixels));
    device->seek(0);
    isCmyk = isJpeg() && isCmykJpeg(*device);
    if (isCmyk)
        warn(QStringLiteral("CMYK: its colours are converted without its profile"));
}

QSize PictureFile::orientedSize() const
{
    return turns(transformation) ? stored.transposed() : stored;
}

QRect PictureFile::toStored(const QRect& oriented) const
{
    // An orientation is a mirroring in the stored frame and then a quarter turn to the right.
    QRect rect = oriented;
    if (turns(transformation))
        rect = QRect(rect.top(), stored.height() - 1 - rect.right(), rect.height(), rect.width());
    if (transformation.testFlag(QImageIOHandler::TransformationMirror))
        rect.moveLeft(stored.width() - rect.width() - rect.left());
    if (transformation.testFlag(QImageIOHandler::TransformationFlip))
        rect.moveTop(stored.height() - rect.height() - rect.top());
    return rect;
}

int PictureFile::orientation() const
{
    switch (transformation) {
    case QImageIOHandler::TransformationMirror:
        return 2;
    case QImageIOHandler::TransformationRotate180:
        return 3;
    case QImageIOHandler::TransformationFlip:
        return 4;
    case QImageIOHandler::TransformationFlipAndRotate90:
        return 5;
    case QImageIOHandler::TransformationRotate90:
        return 6;
    case QImageIOHandler::TransformationMirrorAndRotate90:
        return 7;
    case QImageIOHandler::TransformationRotate270:
        return 8;
    default:
        return 1;
    }
}

QImage PictureFile::readWorkingImage()
{
    return workingImageOf(decode(isJpeg() ? workingSizeOf(stored) : QSize()));
}

QImage PictureFile::readPixels() { return decode(QSize()); }

QImage PictureFile::decode(const QSize& scaledTo)
{
    device->seek(0);
    const CodecMessages messages;
    QImageReader reader(device.get());
    prepare(reader);
    if (scaledTo.isValid())
        reader.setScaledSize(scaledTo);
    QImage picture = reader.read();
    if (picture.isNull())
        throwDamaged(name);
    if (isIncomplete(messages)) {
        if (readingRules.onBroken == OnBroken::Error)
            throwDamaged(name);
        warn(QStringLiteral("damaged or truncated: what is missing is grey"));
    }
    if (isCmyk) // its profile does not describe the colours that it is converted to
        picture.setColorSpace(QColorSpace());
    return orientedBy(reader.transformation(), std::move(picture));
}

bool PictureFile::isJpeg() const { return formatName == QLatin1String("jpeg"); }

void PictureFile::warn(const QString& note)
{
    if (!notes.contains(note))
        notes.append(note);
}

} // namespace host
