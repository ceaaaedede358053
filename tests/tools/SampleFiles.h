#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace samples {

/// A temporary folder of picture files, deleted together with the object.
class SampleFolder {
public:
    SampleFolder();

    /// The path of \a name in the folder.
    QString path(const QString& name) const;

    /// Writes \a image as \a name, in the format of its suffix, and returns the path.
    QString save(const QImage& image, const QString& name) const;

    /// Writes \a bytes as \a name and returns the path.
    QString save(const QByteArray& bytes, const QString& name) const;

    /// The names of all files in the folder, sorted.
    QStringList names() const;

private:
    QTemporaryDir folder;
};

/// A photo-like picture of \a size.
QImage picture(const QSize& size);

/// \a image encoded in \a format.
QByteArray encoded(const QImage& image, const char* format);

/// A JPEG of \a image whose EXIF data says \a orientation, 1 to 8.
QByteArray jpegWithOrientation(const QImage& image, char orientation);

/// A PNG whose header claims \a size and whose pixel data is \a bytes times 1000 zeros, compressed.
QByteArray pngClaiming(const QSize& size, int bytes);

/// The first \a percent of \a bytes.
QByteArray truncated(const QByteArray& bytes, int percent);

} // namespace samples
