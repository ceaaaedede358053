#pragma once

#include "VXCropExport.h"
#include "VXCropSettings.h"

#include <QImage>
#include <QList>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

#include <optional>

/// What a window must heed besides its shape.
struct VXCropConstraints {
    /// Areas that should be in the window, in picture pixels. What lies outside the picture is ignored.
    QVector<QRect> keep;
    /// Areas that should not be in the window, in picture pixels; areas to keep come first.
    QVector<QRect> avoid;
    /// The centre of the window, 0 to 1 across and down the picture, as far as the frame allows. It
    /// wins over all else; what is not a number is taken as 0.5.
    std::optional<QPointF> focus;
    /// The boxes of faces, from brow to chin, in picture pixels: each draws the window as a fifth of the picture's
    /// salience would, in an ellipse over its box extended downwards by half its height. A face that then has 30 % or
    /// more in the window is shown whole if it can be, the largest first; the window moves as little as it
    /// must. Areas to keep and to avoid come first. What lies outside the picture is ignored.
    QVector<QRect> faces = {};
};

/// What put a window where it is.
enum class VXCropReason {
    WholePicture, ///< there is nothing to choose: the window is the picture
    Focus, ///< it is centred on the point of focus
    Keep, ///< areas to keep left only some places
    Avoid, ///< areas to avoid left only some places
    Faces, ///< without its faces it would be elsewhere
    Salience, ///< it holds the most salience
    Centre, ///< no place holds noticeably more salience than the centre
};

/// A window of a picture, and what speaks for it.
struct VXCropWindow {
    QRect window; ///< in picture pixels, always within the picture
    QPointF focus; ///< the centre of the salience that it holds, 0 to 1 across and down the picture
    VXCropReason reason = VXCropReason::Centre; ///< what put it there
    double salience = 0; ///< the share of the picture's salience that it holds, 0 to 1; 0 of none
    double centreSalience = 0; ///< the same of the window in the middle of the picture
};

/// The map of one method.
struct VXCropMap {
    QString method; ///< its name, such as "background"; "areas" for areas to keep
    QImage map; ///< as VXAbstractROI says
};

/// Chooses what to keep of a picture when it is cropped to a shape.
///
/// A picture is analysed once, when the object is made; then it is asked for windows of as many
/// shapes as needed. A window is the largest of its shape that fits into the picture, so it has
/// room to move along one axis only. It goes where the picture's salience map has most: what lies
/// near an end of the window counts less, down to 0.9 at the end itself and up to 1 from a fifth of
/// the window's length on, so that subjects get room. Of several such places the one nearest to the
/// centre wins, and the centre itself unless another holds more than 0.1 % more. Sums are whole
/// numbers, so all machines agree.
///
/// **Takes** a picture as it is seen: turn it first where a camera says so. What is transparent
/// counts as mid-grey.
///
/// **Returns** windows in picture pixels. A null picture, and one of more than 67108862 columns, has
/// no windows: they are null. So are those of ratios whose sides are not both above 0.
///
/// **Settings**: which methods analyse the picture; see VXCropSettings. Or a map from elsewhere, see
/// fromMap().
///
/// **Costs** on one core 0.7 ms for 640 × 480 and 2.2 ms for 24 megapixels, of which only so many
/// pixels are read as the analysis needs; then 0.1 ms for each window, 0.2 ms with areas to keep.
///
/// **Threads and ownership**: a value that keeps nothing of the picture but its maps. Reentrant;
/// const functions may be called from several threads at once. No thread is started, and no event
/// loop is needed.
///
/// **Out of memory**, operations throw std::bad_alloc.
class VXCROP_EXPORT VXCrop {
public:
    /// Of a null picture.
    VXCrop();

    /// Analyses \a image, a picture of any format and size.
    explicit VXCrop(const QImage& image, const VXCropSettings& settings = {});

    /// Analyses a picture of size \a pictureSize that has been brought to its workingSize() already, as by
    /// a decoder that scales. \a image is as workingImage() makes it; one that is larger than 640 × 480 is
    /// made smaller first. Settings are \a settings.
    static VXCrop fromWorkingImage(
        const QImage& image, const QSize& pictureSize, const VXCropSettings& settings = {});

    /// Takes a salience map from elsewhere: a detector, a network, a mask. \a map, of any size and
    /// format, is laid over the whole picture, whose size is \a pictureSize. Where any of it is
    /// transparent, the opacity is the salience; otherwise its grey level.
    static VXCrop fromMap(const QImage& map, const QSize& pictureSize);

    /// The size at which a picture of size \a picture is analysed: the largest of its shape that fits into
    /// 640 × 480, each side at least 1. Empty for an empty picture.
    static QSize workingSize(const QSize& picture);

    /// What a picture is analysed as: at its working size, on mid-grey where it is transparent.
    ///
    /// A pixel is the mean of those that it stands for. Where those are more than two columns or
    /// rows, it is the mean of the middle four of the middle row.
    /// \return an opaque image in QImage::Format_ARGB32; null for a null \a picture, and for one of more
    /// than 67108862 columns.
    static QImage workingImage(const QImage& picture);

    /// The size of the largest window of shape \a ratio, width to height, in a picture of size \a
    /// picture: as wide or as high as the picture, the other side rounded to whole pixels and at
    /// least 1. Empty where one of them is.
    static QSize largestWindow(const QSize& picture, const QSize& ratio);

    /// The size of the picture, in pixels.
    QSize pictureSize() const;

    /// The salience map that windows are chosen by, of the size of the working image. Areas to keep are blended
    /// in with a weight of 20.
    QImage map(const QVector<QRect>& keep = {}) const;

    /// The maps that map() blends, in the order in which it does.
    QVector<VXCropMap> methodMaps(const QVector<QRect>& keep = {}) const;

    /// Chooses the window of shape \a ratio, width to height.
    VXCropWindow window(const QSize& ratio, const VXCropConstraints& constraints = {}) const;

    /// The window() and other windows of the same shape that overlap it and each other by less than
    /// half, each the one that holds most of what is left to choose from: at most \a most of them,
    /// none for less than 1. Only the first is moved to show faces whole. \a ratio and \a constraints are as for window().
    QVector<VXCropWindow> windows(
        const QSize& ratio, int most, const VXCropConstraints& constraints = {}) const;

private:
    QSize picture;
    QSize working;
    QVector<VXCropMap> maps;
    QList<int> weights;
};
