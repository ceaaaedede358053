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

/// A part of a picture, and how it is wanted.
struct Cut {
    QRect window; ///< in pixels of the picture as it is seen
    QSize size; ///< that it is scaled to, in pixels
    QSize canvas = {}; ///< that it is in the middle of, if any; not smaller
    QColor background = {}; ///< of the canvas
};

/// A picture in a file.
///
/// AVIF, BMP, GIF, HEIC, JPEG, JPEG XL, PBM, PGM, PNG, PPM, TIFF and WebP are read. The content decides the
/// format, not the name; of several frames or pages the first is read, unless the rules ask for all frames of a
/// GIF or a WebP; the EXIF orientation is applied.
/// A picture is decoded once where that serves, and no larger than is needed where its format allows it.
class PictureFile {
public:
    /// Opens the file and reads its header.
    /// \throws HostError when the file is missing, is no picture, or breaks the rules.
    PictureFile(const QString& path, const ReadingRules& rules);

    const QString& path() const { return name; }

    /// The size of the picture as it is seen, and as it is stored, in pixels.
    QSize orientedSize() const { return seen.inOtherFrame(stored); }
    QSize storedSize() const { return stored; }

    /// A rectangle of the picture as it is seen, in pixels of the picture as it is stored.
    QRect toStored(const QRect& oriented) const { return seen.toStored(oriented, stored); }

    /// The name of the format, such as "jpeg".
    const QString& format() const { return decoder.format(); }

    /// How many pixels it takes the memory of.
    qint64 countedPixels() const
    {
        return qint64 { stored.width() } * stored.height() * frameCount() * decoder.weight();
    }

    /// How many frames are read.
    int frameCount() const { return decoder.frameCount(); }

    /// The EXIF orientation, 1 to 8.
    int orientation() const { return vips_image_get_orientation(decoder.header().get_image()); }

    /// The picture as it is seen, in sRGB, as VXCrop::workingImage() makes it. It does not depend on what else
    /// is read.
    /// \param frame which of those that are read, from 0.
    /// \throws HostError when the picture is damaged, or the time is up.
    /// \throws std::bad_alloc
    QImage readWorkingImage(int frame = 0);

    /// The picture as it is seen, in sRGB, with 8 bits a channel.
    /// \throws as readWorkingImage() does.
    QImage readAll();

    /// Parts of the picture as it is seen, with its colours, its depth, its profile, its metadata and its frames.
    /// \throws as readWorkingImage() does.
    QVector<vips::VImage> readCuts(const QVector<Cut>& cuts);

    /// When its time is up.
    const Deadline& deadline() const { return decoder.deadline(); }

    /// What the user should know: one line each, in a fixed order.
    QStringList warnings() const { return notes + decoder.warnings(); }

private:
    // A part of the stored picture, so many times smaller.
    struct Decoded {
        vips::VImage pixels;
        QRect area;
        QPoint origin; ///< where the first of the pixels begins
        int shrink;
    };

    int shrinkFor(const QSize& storedPart, const QSize& wanted) const;
    bool isHeldWhole() const;
    const Decoded& decoded(int shrink, const QRect& area);
    vips::VImage pixelsForAnalysis(int frame);
    QRect areaOfFrame(int frame) const;
    vips::VImage cutOut(const Decoded& source, const Cut& cut, int frame) const;
    [[noreturn]] void throwConverted(const vips::VError& error) const;

    QString name;
    Decoder decoder;
    QSize stored;
    Orientation seen;
    QStringList notes;
    std::optional<Decoded> held;
};

} // namespace host
