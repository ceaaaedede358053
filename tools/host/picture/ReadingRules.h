#pragma once

#include <QtGlobal>

namespace host {

/// What to do with a damaged or truncated picture: refuse it, or use the part that can be decoded.
enum class OnBroken { Error, Warn };

/// Limits on pictures, so that a small file cannot claim all memory, and what is read of them.
struct ReadingRules {
    qint64 mostPixels = 200'000'000; ///< weighted by Decoder::weight() where decoders hold all
    qint64 mostBytes = 1'000'000'000; ///< of the file
    OnBroken onBroken = OnBroken::Error;
    int mostSeconds = 60; ///< for reading the picture and writing all its crops
    bool areAllFramesRead = false; ///< of a GIF or a WebP, instead of only the first
};

} // namespace host
