#pragma once

#include "Decoder.h"
#include "Orientation.h"
#include "ReadingRules.h"

#include <vips/vips8>

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace host {

/// A part of a picture, and how it is to be scaled and padded.
struct Cut {
    QRect window; ///< in pixels of the picture as seen
    QSize size; ///< the size to scale to, in pixels
    QSize canvas = {}; ///< the size to pad to, in pixels, at least \a size; empty: no padding
    QColor background = {}; ///< of the padding
};

/// A picture in a file.
///
/// Reads AVIF, BMP, GIF, HEIC, JPEG, JPEG XL, PBM, PGM, PNG, PPM, TIFF and WebP. The content decides the format, not
/// the name. Of several frames or pages the first is read, unless the rules ask for all frames of a GIF or a WebP. The
/// EXIF orientation is applied.
///
/// A picture is decoded only once where its pixels can be reused, and reduced while decoding where its format allows
/// it.
class PictureFile {
public:
    /// Opens the file and reads its header.
    /// \throws HostError when the file is missing, is not a picture, or exceeds a limit.
    PictureFile(const QString& path, const ReadingRules& rules);

    const QString& path() const { return name; }

    /// The size of the picture as it is seen, and as it is stored, in pixels; of one frame.
    QSize orientedSize() const { return seen.inOtherFrame(stored); }
    QSize storedSize() const { return stored; }

    /// Converts a rectangle in the picture as seen to one in the stored picture.
    QRect toStored(const QRect& oriented) const { return seen.toStored(oriented, stored); }

    /// The name of the format, such as "jpeg".
    const QString& format() const { return decoder.format(); }

    /// The memory that the picture needs, as a number of pixels of 8 bits per channel.
    qint64 countedPixels() const
    {
        return qint64 { stored.width() } * stored.height() * frameCount() * decoder.weight();
    }

    /// How many frames are read.
    int frameCount() const { return decoder.frameCount(); }

    /// The EXIF orientation, 1 to 8.
    int orientation() const { return vips_image_get_orientation(decoder.header().get_image()); }

    /// The picture as seen, in sRGB, reduced by VXCrop::workingImage(). The result does not depend on what was read
    /// before.
    /// \param frame the index of the frame, from 0.
    /// \throws HostError when the picture is damaged, or the time limit has passed.
    /// \throws std::bad_alloc
    QImage readWorkingImage(int frame = 0);

    /// The picture as seen, in sRGB, scaled to \a size, which may be larger.
    /// \throws as readWorkingImage() does.
    QImage readScaled(const QSize& size);

    /// The picture as seen, in sRGB, with 8 bits per channel.
    /// \throws as readWorkingImage() does.
    QImage readAll();

    /// Parts of the picture as seen, with its colours, bit depth, profile, metadata and frames.
    /// \throws as readWorkingImage() does.
    QVector<vips::VImage> readCuts(const QVector<Cut>& cuts);

    /// The time limit of the picture, which runs since the file was opened.
    const Deadline& deadline() const { return decoder.deadline(); }

    /// What the user should know about the picture: one line each, in a fixed order.
    QStringList warnings() const { return notes + decoder.warnings(); }

private:
    // A decoded part of the stored picture, reduced by a factor.
    struct Decoded {
        vips::VImage pixels;
        QRect area; ///< in stored pixels
        QPoint origin; ///< the stored pixel at the upper left of \a pixels
        int shrink;
    };

    int shrinkFor(const QSize& storedPart, const QSize& wanted) const;
    bool isHeldWhole() const;
    const Decoded& decoded(int shrink, const QRect& area);
    vips::VImage pixelsForAnalysis(int frame);
    QRect areaOfFrame(int frame) const;
    vips::VImage cutOut(const Decoded& source, const Cut& cut, int frame) const;
    [[noreturn]] void throwNotConverted(const vips::VError& error) const;

    QString name;
    Decoder decoder;
    QSize stored;
    Orientation seen;
    QStringList notes;
    std::optional<Decoded> held;
};

} // namespace host
