#pragma once

#include <vips/vips8>

#include <QByteArray>
#include <QImage>
#include <QSaveFile>
#include <QString>

namespace host {

/// Refuses a name whose suffix names no format that is written.
/// \throws HostError
void requireKnownFormat(const QString& path);

/// Refuses an output that is there and is no regular file: a folder, a pipe or a device.
/// \throws HostError
void requireReplaceable(const QString& output);

/// A picture file on its way: appears whole under its name when commit() is called, or not at all.
class PictureWriter {
public:
    /// Encodes \a picture in the format that the suffix of \a path names. A format that knows no
    /// transparency gets white in its place.
    /// \throws HostError when there is no such format, the file cannot be created, or writing
    /// fails.
    PictureWriter(const vips::VImage& picture, const QString& path);
    PictureWriter(const QImage& picture, const QString& path);

    /// Whether there is a file of that name with other content.
    bool differsFromExisting() const;

    /// Gives the file its name, replacing one of that name.
    /// \throws HostError when that fails.
    void commit();

private:
    QByteArray content;
    QSaveFile file;
};

/// Refuses to write \a output over \a input.
/// \throws HostError when both name the same file.
void refuseToOverwriteInput(const QString& input, const QString& output);

} // namespace host
