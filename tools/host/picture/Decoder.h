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

/// Decodes a picture file, as often as it is asked to: the picture as it is stored.
class Decoder {
public:
    /// Opens the file and reads its header.
    /// \throws HostError when the file is missing, is no picture, or breaks the rules.
    Decoder(const QString& path, const ReadingRules& rules);
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() = default;

    /// The picture without its pixels: its size, its colours, its metadata. Frames lie below each other.
    const vips::VImage& header() const { return headerImage; }

    /// How many frames are read.
    int frameCount() const { return frames; }

    /// The name of the format, such as "jpeg".
    const QString& format() const { return formatName; }

    /// How many times a pixel counts where its memory matters: twice when it has 16 bits, and when the decoder holds
    /// the whole picture.
    int weight() const { return pixelWeight; }

    /// Up to which factor, a power of 2, it makes pictures smaller while it decodes them.
    int mostShrink() const { return decodingShrink; }

    /// Decodes a part of the picture, reduced by a whole factor and on mid-grey where it is transparent if
    /// \a isOpaque says so.
    /// \throws HostError when the picture is damaged, or the time is up.
    /// \throws std::bad_alloc
    vips::VImage decode(int shrink, const QRect& area, bool isOpaque);

    const Deadline& deadline() const { return timeLimit; }

    /// What the user should know of how it was decoded.
    const QStringList& warnings() const { return notes; }

private:
    void readHeader();
    void readBitmap();
    void refuseTooMany(const QSize& size, int weight) const;
    vips::VImage opened(int shrink);
    vips::VImage tolerating(const std::function<vips::VImage()>& read);
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
    EmbeddedMetadata unread; ///< by libvips
    int pixelWeight = 1;
    int frames = 1;
    int decodingShrink = 1;
    VipsFailOn failOn = VIPS_FAIL_ON_WARNING; ///< the least fault that is not tolerated
    QStringList notes;
    vips::VImage headerImage;
};

} // namespace host
