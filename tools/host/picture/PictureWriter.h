#pragma once

#include "Deadline.h"
#include "Formats.h"
#include "WritingRules.h"
#include "host/files/OutputFile.h"

#include <vips/vips8>

#include <QByteArray>
#include <QImage>
#include <QString>

namespace host {

/// Refuses a path whose suffix is not that of a format that can be written, unless \a rules name the format.
/// \throws HostError
void requireKnownFormat(const QString& path, const WritingRules& rules);

/// The format of a file at \a path: that of \a rules, else that of its suffix, else PNG for standard output.
/// \pre requireKnownFormat() accepts the path and the rules.
const Format& formatOf(const QString& path, const WritingRules& rules);

/// A picture file that appears complete under its name when commit() is called, or not at all.
class PictureWriter {
public:
    /// Encodes \a picture in the format of formatOf().
    /// \throws HostError when there is no such format, the system has no encoder for it, the file cannot be
    /// created, writing fails, or \a deadline passes.
    explicit PictureWriter(const vips::VImage& picture, const QString& path,
        const WritingRules& rules = {}, const Deadline& deadline = Deadline::never());
    PictureWriter(const QImage& picture, const QString& path);

    const QString& path() const { return file.path(); }
    const QString& draftPath() const { return file.draftPath(); }

    /// How an existing file of the same name compares with the new content.
    enum class Existing { None, Same, Other };

    /// Compares the new content with an existing file.
    Existing existing() const;

    /// Gives the file its name. \see OutputFile::commit()
    void commit(bool mayReplace) { file.commit(mayReplace); }

private:
    QByteArray content;
    OutputFile file;
};

/// Refuses to write \a output over \a input.
/// \throws HostError when both name the same file.
void refuseToOverwriteInput(const QString& input, const QString& output);

} // namespace host
