#pragma once

#include "host/picture/PictureWriter.h"

#include <QImage>
#include <QSet>
#include <QString>

#include <deque>
#include <string>

namespace CLI {
class App;
}

namespace vxroi {

/// Adds --if-exists to a command that writes a few files: fail or overwrite.
void addIfExistsOption(CLI::App& command, std::string& ifExists);

/// Refuses an output that is \a input, or that already exists unless \a ifExists is "overwrite".
/// \throws host::HostError
void requireFreeName(const QString& input, const QString& output, const std::string& ifExists);

/// Picture files that are written together and appear together, once all of them could be encoded.
class OutputFiles {
public:
    /// \param inputPath the file that they are made from, which none of them may be.
    /// \param ifExistsWish what addIfExistsOption() got.
    OutputFiles(QString inputPath, std::string ifExistsWish);

    /// \throws host::HostError when the name is taken, or writing fails.
    void add(const QImage& image, const QString& path);

    /// \throws host::HostError when a file cannot be given its name.
    void commit();

private:
    QString input;
    std::string ifExists;
    QSet<QString> paths;
    std::deque<host::PictureWriter> files;
};

/// Refuses a path that does not end in ".png".
/// \throws host::HostError
void requirePng(const QString& path);

} // namespace vxroi
