#pragma once

#include <vips/vips8>

#include <QString>
#include <QStringList>
#include <QVector>

namespace host {

/// A format that pictures are read in.
struct Format {
    const char* loader = nullptr; ///< the class of libvips that reads it
    const char* name = nullptr;
    QStringList suffixes; ///< of its files, in lower case
    int mostShrink = 1; ///< up to which factor its decoder makes pictures smaller while it decodes
};

/// The formats that libvips reads for us. It knows many more; but their decoders take what they are told for
/// granted, or hand it on to other programs.
const QVector<Format>& formatsRead();

/// The name of the format of \a header, a picture that \a format's class has read: HEIC and AVIF have the same.
QString nameOf(const Format& format, const vips::VImage& header);

/// The suffixes that files of the formats that are read go by, in lower case.
QStringList pictureSuffixes();

} // namespace host
