#pragma once

#include "VXAbstractROI.h"

#include <QList>
#include <QRect>
#include <QSize>

/// Rectangles that the host marks as very important: white, each with a grey halo.
///
/// The halo is an ellipse around the centre of the rectangle, twice as wide and twice as high. All
/// halos are drawn before any area, so no area is covered.
///
/// **Takes** an image, of which only the size is used. The areas are drawn in their own
/// coordinates, never rescaled: give them in those of the image that is evaluated, which for a
/// mixer is the working image. Where the size that they were given for differs from the image's, a
/// warning is logged, the only message of the library.
///
/// **Returns** a salience map: 255 in the areas and their outlines, 160 in the halos, 0 elsewhere.
/// What lies outside the image is cut off. Null for a null image.
///
/// **Settings**: the areas and the size of the image they were given for, once in the constructor.
///
/// **Costs** what painting the shapes costs.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXVeryImportantAreasROI : public VXAbstractROI {
public:
    /// Constructs the method enabled and with weight 0.
    /// \param areas rectangles in pixels, anywhere; none gives a black map. A halo that an int
    ///        cannot measure is cut off 2³⁰ pixels from the origin.
    /// \param areasSize size of the image in whose coordinates the areas are given.
    VXVeryImportantAreasROI(QList<QRect> areas, const QSize& areasSize);
    /// Copies every field.
    VXVeryImportantAreasROI(const VXVeryImportantAreasROI&) = default;
    /// Copies every field.
    VXVeryImportantAreasROI& operator=(const VXVeryImportantAreasROI&) = default;
    ~VXVeryImportantAreasROI() override;

    /// Draws the areas into a map of the size of \a image.
    QImage evaluate(const QImage& image) override;

private:
    QList<QRect> areas;
    QSize areasSize;
};
