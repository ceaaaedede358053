#include "PictureReader.h"

#include "CodecMessages.h"
#include "HostError.h"
#include "ImageMemory.h"
#include "PictureSource.h"

#include <VXCrop/VXCrop.h>

#include <QColorSpace>
#include <QTransform>

#include <utility>

namespace host {

namespace {

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

// The formats whose headers tell how large the picture is, and whose decoders believe them. There is more
// that Qt's plugins read; but a decoder that makes room for what an inner header claims cannot be limited.
const QStringList& readFormats()
{
    static const QStringList formats { QStringLiteral("bmp"), QStringLiteral("gif"),
        QStringLiteral("jpeg"), QStringLiteral("pbm"), QStringLiteral("pgm"), QStringLiteral("png"),
        QStringLiteral("ppm"), QStringLiteral("tga"), QStringLiteral("tiff"),
        QStringLiteral("webp"), QStringLiteral("xpm") };
    return formats;
}

bool turns(QImageIOHandler::Transformations transformation)
{
    return transformation.testFlag(QImageIOHandler::TransformationRotate90);
}

// Qt's own turning of what it reads would lose the colour profile and the resolution.
QImage orientedBy(QImageIOHandler::Transformations transformation, QImage stored)
{
    QImage picture = held(
        std::move(stored).mirrored(transformation.testFlag(QImageIOHandler::TransformationMirror),
            transformation.testFlag(QImageIOHandler::TransformationFlip)));
    if (!turns(transformation))
        return picture;
    QImage turned = held(picture.transformed(QTransform().rotate(90)));
    turned.setColorSpace(picture.colorSpace());
    turned.setDotsPerMeterX(picture.dotsPerMeterY());
    turned.setDotsPerMeterY(picture.dotsPerMeterX());
    return turned;
}

} // namespace

QStringList pictureSuffixes()
{
    return readFormats() + QStringList { QStringLiteral("jpg"), QStringLiteral("tif") };
}

PictureFile::PictureFile(const QString& path, const ReadingRules& rules)
    : name(path)
    , readingRules(rules)
    , device(openPicture(path, rules.mostBytes))
{
    readHeader();
    device->seek(0);
    if (formatName == QLatin1String("gif"))
        stored = gifScreenSize(*device);
    if (stored.isEmpty())
        throwDamaged(name);
    refuseTooLarge(stored);
    device->seek(0);
    const bool isCutShort = (formatName == QLatin1String("bmp") && isBmpCutShort(*device))
        || (formatName == QLatin1String("gif") && isGifCutShort(*device));
    if (isCutShort)
        allowDamage(QStringLiteral("damaged or truncated: what is missing is black"));
    device->seek(0);
    isCmyk = isJpeg() && isCmykJpeg(*device);
    if (isCmyk)
        warn(QStringLiteral("CMYK: its colours are converted without its profile"));
}

void PictureFile::readHeader()
{
    const CodecMessages messages;
    QImageReader reader(device.get());
    prepare(reader);
    formatName = QString::fromLatin1(reader.format());
    if (!readFormats().contains(formatName) || !reader.canRead())
        throw HostError(ExitCode::UnreadableInput, name,
            QStringLiteral("not a picture in a known format"),
            QStringLiteral("convert it to PNG or JPEG"));
    stored = reader.size();
    transformation = reader.transformation();
    if (reader.supportsAnimation() && reader.imageCount() > 1)
        warn(QStringLiteral("animated: only the first frame is used"));
}

void PictureFile::refuseTooLarge(const QSize& size) const
{
    const qint64 pixels = qint64 { size.width() } * size.height();
    if (pixels > readingRules.mostPixels)
        throw HostError(ExitCode::UnreadableInput, name,
            QStringLiteral("%1 x %2 pixels are too many").arg(size.width()).arg(size.height()),
            QStringLiteral("allow them with --max-pixels %1").arg(pixels));
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
    return VXCrop::workingImage(decode(isJpeg() ? VXCrop::workingSize(stored) : QSize()));
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
    // What a header announces and what is behind it may differ.
    if (picture.size() != (scaledTo.isValid() ? scaledTo : stored))
        throwDamaged(name);
    if (isIncomplete(messages))
        allowDamage(QStringLiteral("damaged or truncated: what is missing is grey"));
    if (isCmyk) // its profile does not describe the colours that it is converted to
        picture.setColorSpace(QColorSpace());
    return orientedBy(reader.transformation(), std::move(picture));
}

bool PictureFile::isJpeg() const { return formatName == QLatin1String("jpeg"); }

void PictureFile::allowDamage(const QString& note)
{
    if (readingRules.onBroken == OnBroken::Error)
        throwDamaged(name);
    warn(note);
}

void PictureFile::warn(const QString& note)
{
    if (!notes.contains(note))
        notes.append(note);
}

} // namespace host
