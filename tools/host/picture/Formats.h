#pragma once

#include <QFlags>
#include <QString>
#include <QStringList>
#include <QVector>

namespace host {

/// What files of a format can have, and what their decoders can do only.
enum class Ability {
    Inks = 1, ///< CMYK
    Opacity = 2,
    Frames = 4, ///< that are shown one after the other
    FullChroma = 8, ///< colours of the resolution of the brightness, or half of it
    Progression = 16, ///< they appear coarse first
    WholeDecoding = 32, ///< the whole picture at once
    Profile = 64, ///< of their colours
};
Q_DECLARE_FLAGS(Abilities, Ability)
Q_DECLARE_OPERATORS_FOR_FLAGS(Abilities)

/// A picture format, and what libvips reads and writes it with.
struct Format {
    const char* name = nullptr;
    QStringList suffixes; ///< of its files, in lower case; the first is the usual one
    const char* loader
        = nullptr; ///< the class that reads it; null for BMP, which Qt reads and writes
    int mostShrink = 1; ///< up to which factor its decoder makes pictures smaller while it decodes
    const char* saver
        = nullptr; ///< the suffix that it is written by, with options; null for BMP, empty for none
    int quality = 0; ///< that it is written with unless another is asked for; 0: it has none
    Abilities abilities = {};
};

/// The formats that pictures are read and written in. libvips knows many more; but their decoders take what
/// they are told for granted, or hand it on to other programs.
const QVector<Format>& formats();

/// Whether pictures are written in a format.
bool isWritten(const Format& format);

/// The format of files that end in \a suffix, such as "jpg"; null when there is none.
const Format* formatCalled(const QString& suffix);

} // namespace host
