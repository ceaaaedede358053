#pragma once

#include <QtGlobal>

namespace host {

/// What to do with a picture that is only partly there.
enum class OnBroken { Error, Warn };

/// What a picture may be like at most, so that a small file cannot claim all memory.
struct ReadingRules {
    qint64 mostPixels
        = 200'000'000; ///< where many are held, one of 16 bits counts twice, and twice where decoders hold all
    qint64 mostBytes = 1'000'000'000; ///< of the file
    OnBroken onBroken = OnBroken::Error; ///< a damaged picture whose rest can be decoded
    int mostSeconds = 60; ///< for reading it and for all that is made of it
    bool areAllFramesRead = false; ///< of a GIF or a WebP, instead of the first
};

} // namespace host
