#pragma once

#include "host/crop/CropTask.h"
#include "host/picture/PictureWriter.h"

#include <QImage>
#include <QSet>
#include <QString>

#include <deque>

namespace vxroi {

/// Refuses an output that is \a input, or that already exists unless it may be replaced.
/// \throws host::HostError
void requireFreeName(const QString& input, const QString& output, host::IfExists ifExists);

/// Picture files that are encoded one by one and appear under their names only when all of them have succeeded.
class OutputFiles {
public:
    /// \param inputPath the file that they are made from, which is never overwritten.
    /// \param ifOutputsExist Fail or Overwrite.
    OutputFiles(QString inputPath, host::IfExists ifOutputsExist);

    /// Encodes \a image for the file at \a path.
    /// \throws host::HostError when the name is taken, or writing fails.
    void add(const QImage& image, const QString& path);

    /// Makes all files appear under their names.
    /// \throws host::HostError when a file cannot be given its name.
    void commit();

private:
    QString input;
    host::IfExists ifExists;
    QSet<QString> paths;
    std::deque<host::PictureWriter> files;
};

/// Refuses a path that does not end in ".png".
/// \throws host::HostError
void requirePng(const QString& path);

} // namespace vxroi
