#pragma once

#include <QColor>

namespace host {

struct Format;

/// The resolution of the chroma, in formats with a choice.
enum class Chroma {
    OfSource, ///< half where the source file has half, full otherwise
    Full,
    Half,
};

/// Which metadata of a picture is kept. Its colour profile and its resolution always are.
enum class KeptMetadata {
    All,
    Copyright, ///< only the author and the copyright
    None,
};

/// How pictures are written.
struct WritingRules {
    const Format* format = nullptr; ///< one of formats(); null: that of the name's suffix
    int quality = 0; ///< 1 to 100; 0: the default of the format
    Chroma chroma = Chroma::OfSource;
    bool isProgressive = false; ///< where the format supports it
    bool isInSrgb = false; ///< convert colours to sRGB, and write no profile
    KeptMetadata metadata = KeptMetadata::All;
    QColor background
        = Qt::white; ///< of padding, and below transparent pixels in formats without opacity
};

} // namespace host
