#pragma once

#include <QByteArray>
#include <QSize>

namespace samples {

/// A JPEG with four channels, all of one ink, that carries \a profile as its ICC profile.
QByteArray cmykJpeg(const QSize& size, const QByteArray& profile);

/// A grey JPEG that is refined in so many scans, 2 to 191.
QByteArray jpegOfScans(const QSize& size, int scans);

} // namespace samples
