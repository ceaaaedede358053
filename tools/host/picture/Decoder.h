#pragma once

#include "Deadline.h"
#include "EmbeddedMetadata.h"
#include "ReadingRules.h"

#include <vips/vips8>

#include <QIODevice>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace host {

/// Decodes a picture file, as often as needed, without applying its EXIF orientation.
class Decoder {
public:
    /// Opens the file and reads its header.
    /// \throws HostError when the file is missing, is not a picture, or exceeds a limit.
    Decoder(const QString& path, const ReadingRules& rules);
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() = default;

    /// The picture's size, colours and metadata, without pixels. Frames are stacked vertically.
    const vips::VImage& header() const { return headerImage; }

    /// How many frames are read.
    int frameCount() const { return frames; }

    /// The name of the format, such as "jpeg".
    const QString& format() const { return formatName; }

    /// How many times a pixel counts against limits of memory: doubled for 16 bits per channel, and doubled when the
    /// decoder keeps the whole picture in memory.
    int weight() const { return pixelWeight; }

    /// The largest factor, a power of 2, by which the decoder can reduce a picture while decoding.
    int mostShrink() const { return decodingShrink; }

    /// Decodes a part of the picture.
    /// \param shrink the whole factor to reduce it by.
    /// \param area the part, in pixels of the unreduced picture.
    /// \param isOpaque whether to flatten transparent pixels onto mid-grey.
    /// \throws HostError when the picture is damaged, or the time limit has passed.
    /// \throws std::bad_alloc
    vips::VImage decode(int shrink, const QRect& area, bool isOpaque);

    const Deadline& deadline() const { return timeLimit; }

    /// What the user should know about the decoding.
    const QStringList& warnings() const { return notes; }

private:
    void readHeader();
    void readBitmap();
    void refuseTooMany(const QSize& size, int weight) const;
    vips::VImage opened(int shrink);
    vips::VImage readTolerantly(const std::function<vips::VImage()>& read);
    bool tolerateMore();
    void noteDamage();
    void warn(const QString& note);
    void refuseManyFaults(const vips::VError& error) const;
    [[noreturn]] void throwDamaged() const;

    QString name;
    ReadingRules rules;
    Deadline timeLimit;
    std::unique_ptr<QIODevice> device;
    std::optional<vips::VImage> bitmap; ///< the pixels of a BMP, which libvips does not read
    QString formatName;
    EmbeddedMetadata unread; ///< metadata that libvips does not read
    int pixelWeight = 1;
    int frames = 1;
    int decodingShrink = 1;
    VipsFailOn failOn = VIPS_FAIL_ON_WARNING; ///< the mildest fault that is not tolerated
    QStringList notes;
    vips::VImage headerImage;
};

} // namespace host
