#pragma once

#include "SalienceSettings.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QString>
#include <QVector>

namespace host {

/// The size at which a picture of size \a picture is analysed: the largest of its shape that fits into
/// 640 × 480, each side at least 1.
QSize workingSizeOf(const QSize& picture);

/// What a picture is analysed as: the picture at its working size, on mid-grey where it is
/// transparent.
/// \param picture not null, of any format and size.
/// \return an opaque image in QImage::Format_ARGB32, which the methods read as it is.
QImage workingImageOf(const QImage& picture);

/// Computes the salience map of a working image.
/// \param areas very important areas, in pixels of the working image; they are blended in with the
/// library's weight for them.
/// \return a map as large as the image; black where every method is off.
QImage salienceMapOf(
    const QImage& working, const SalienceSettings& settings, const QList<QRect>& areas = {});

/// Areas of a picture, cut off at its edges.
/// \throws HostError when one lies outside the picture.
QVector<QRect> areasWithin(const QSize& picture, const QVector<QRect>& areas);

/// Areas within a picture of size \a picture in pixels of its working image, each at least one pixel.
QList<QRect> workingAreas(const QVector<QRect>& areas, const QSize& picture, const QSize& working);

/// \a map with its levels stretched to reach from black to white, for the eye; its text "Comment" says
/// so.
QImage stretched(const QImage& map);

/// The map of one method.
struct MethodMap {
    QString method; ///< its name in lower case, such as "achanta"
    QImage map;
};

/// Computes the maps that salienceMapOf() blends, in the order in which it does.
QVector<MethodMap> methodMapsOf(
    const QImage& working, const SalienceSettings& settings, const QList<QRect>& areas = {});

} // namespace host
