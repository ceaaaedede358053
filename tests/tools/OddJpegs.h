#pragma once

#include <QByteArray>
#include <QSize>

namespace samples {

/// A CMYK JPEG of a single colour with \a profile as its ICC profile.
QByteArray cmykJpeg(const QSize& size, const QByteArray& profile);

/// A grey progressive JPEG with \a scans scans, 2 to 191.
QByteArray jpegOfScans(const QSize& size, int scans);

} // namespace samples
