#pragma once

#include <QFlags>
#include <QString>
#include <QStringList>
#include <QVector>

namespace host {

/// What files of a format can contain, and how their decoder works.
enum class Ability {
    Inks = 1, ///< CMYK
    Opacity = 2,
    Frames = 4, ///< animations
    FullChroma = 8, ///< chroma at full or at half resolution, as the writer chooses
    Progression = 16, ///< progressive or interlaced files
    WholeDecoding = 32, ///< the decoder keeps the whole picture in memory
    Profile = 64, ///< an ICC profile
};
Q_DECLARE_FLAGS(Abilities, Ability)
Q_DECLARE_OPERATORS_FOR_FLAGS(Abilities)

/// A picture format, and how libvips reads and writes it.
struct Format {
    const char* name = nullptr;
    QStringList suffixes; ///< of file names, in lower case; the first is the usual one
    const char* loader = nullptr; ///< the loader class of libvips; null for BMP, which Qt reads
    int mostShrink = 1; ///< the largest factor by which the decoder can reduce while decoding
    const char* saver
        = nullptr; ///< the suffix and options for libvips; null for BMP, empty if not written
    int quality = 0; ///< the default, 1 to 100; 0: the format has no quality
    Abilities abilities = {};
};

/// The formats that pictures are read and written in. libvips supports many more, but their decoders trust their input
/// or hand it to other programs.
const QVector<Format>& formats();

/// Whether pictures can be written in a format.
bool isWritten(const Format& format);

/// The format of files that end in \a suffix, such as "jpg"; null when there is none.
const Format* formatCalled(const QString& suffix);

} // namespace host
