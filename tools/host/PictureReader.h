#pragma once

#include <QIODevice>
#include <QImage>
#include <QImageReader>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

namespace host {

/// What to do with a picture that is only partly there.
enum class OnBroken { Error, Warn };

/// What a picture may be like at most, so that a small file cannot claim all memory.
struct ReadingRules {
    qint64 mostPixels = 200'000'000;
    qint64 mostBytes = 1'000'000'000; ///< of the file
    OnBroken onBroken = OnBroken::Error; ///< a damaged picture whose rest can be decoded
};

/// The suffixes that files of the formats that are read go by, in lower case.
QStringList pictureSuffixes();

/// A picture in a file.
///
/// BMP, GIF, JPEG, PBM, PGM, PNG, PPM, TGA, TIFF, WebP and XPM are read, as far as Qt has plugins for
/// them. The content decides the format, not the name; of several frames the first is read; the EXIF
/// orientation is applied.
class PictureFile {
public:
    /// Opens the file and reads its header.
    /// \throws HostError when the file is missing, is no picture, or breaks the rules.
    PictureFile(const QString& path, const ReadingRules& rules);

    const QString& path() const { return name; }

    /// The size of the picture as it is seen, and as it is stored, in pixels.
    QSize orientedSize() const;
    QSize storedSize() const { return stored; }

    /// A rectangle of the picture as it is seen, in pixels of the picture as it is stored.
    QRect toStored(const QRect& oriented) const;

    /// The name of the format, such as "jpeg".
    QString format() const { return formatName; }

    bool isJpeg() const;

    /// The EXIF orientation, 1 to 8.
    int orientation() const;

    /// Decodes the picture and makes of it what VXCrop::workingImage() does. A JPEG is decoded no larger than
    /// that needs.
    /// \throws HostError when the picture is damaged.
    QImage readWorkingImage();

    /// Decodes the picture in the format that it is stored in.
    /// \throws HostError when the picture is damaged.
    QImage readPixels();

    /// What the user should know: one line each, in a fixed order.
    const QStringList& warnings() const { return notes; }

private:
    void readHeader();
    void refuseTooLarge(const QSize& size) const;
    QImage decode(const QSize& scaledTo);
    void allowDamage(const QString& note);
    void warn(const QString& note);

    QString name;
    ReadingRules readingRules;
    std::unique_ptr<QIODevice> device;
    QSize stored;
    QString formatName;
    bool isCmyk = false;
    QImageIOHandler::Transformations transformation;
    QStringList notes;
};

} // namespace host
