#pragma once

#include <QColor>

namespace host {

struct Format;

/// The resolution of the colours in formats that know several.
enum class Chroma {
    OfSource, ///< half of that of the brightness where the source has half of it, and full otherwise
    Full,
    Half,
};

/// What is kept of a picture's metadata, whose colour profile and resolution always stay.
enum class KeptMetadata {
    All,
    Copyright, ///< who made it and whose it is
    None,
};

/// How pictures are written.
struct WritingRules {
    const Format* format
        = nullptr; ///< one of formats(); null: the one that the name's suffix means
    int quality = 0; ///< 1 to 100; 0: that of the format
    Chroma chroma = Chroma::OfSource;
    bool isProgressive = false; ///< where the format can
    bool isInSrgb = false; ///< colours are converted, and there is no profile
    KeptMetadata metadata = KeptMetadata::All;
    QColor background
        = Qt::white; ///< around pictures, and below transparent ones in formats without opacity
};

} // namespace host
