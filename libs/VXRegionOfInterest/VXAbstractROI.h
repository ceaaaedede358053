#pragma once

#include "VXRegionOfInterestExport.h"

#include <QImage>

/// The common base of every salience method, and of the image filters VXGaussianBlur and
/// VXMaxFilter.
///
/// A method computes a *salience map* of an image: how much each pixel draws the eye. A filter
/// makes another image of it, in the format that its class says.
///
/// **Takes** any QImage, null and empty ones included. Images of 32 bits per pixel are read as the
/// words 0xAARRGGBB that they hold, whatever their format calls the bytes; images of another depth
/// are converted to QImage::Format_ARGB32 first. Alpha is not composited. (The filters and
/// VXSobelROI::convolute read pixels as QImage converts them, from every format.)
///
/// **Returns** the salience map: an image in QImage::Format_ARGB32 with the size of the image that
/// was evaluated. The value of a pixel, 0 to 255 with 255 the most salient, is its red channel.
/// Methods write opaque grey pixels, so green and blue repeat the value and alpha is 255; the
/// readers (VXSalienzMixer, the maximizers) look at red only. The map of a null image is null.
///
/// **Settings**: a switch and a weight. The mixer reads both; evaluate() looks at neither.
///
/// **Costs** what the derived method says.
///
/// **Threads and ownership**: reentrant. Methods keep nothing between calls but their settings and
/// start no threads: use an object from one thread at a time, different objects from as many threads
/// as you like. Who constructs an object deletes it; those of a mixer belong to the mixer. No image
/// that is handed in is changed, and what is returned has memory of its own: it outlives the buffer that an
/// image was constructed over. (Only adjustFormat() shares memory.)
///
/// **Out of memory**, operations throw std::bad_alloc. An image too wide for 32 bits per pixel, of more than
/// 67108862 columns, has no map: null stands for it.
class VXREGIONOFINTEREST_EXPORT VXAbstractROI {
public:
    /// Constructs a method that is enabled and has weight 0.
    VXAbstractROI();

    /// Destroys the method; safe through a pointer to the base.
    virtual ~VXAbstractROI();

    /// Computes the salience map of \a image, or filters it.
    /// \return a map is an ARGB32 image of the size of \a image, grey and opaque, 0 to 255 in red;
    ///         null for a null \a image.
    virtual QImage evaluate(const QImage& image) = 0;

    /// Switches the method on or off for the mixer.
    void setEnabled(bool enabled);

    /// Whether the mixer runs this method; true unless switched off.
    bool isEnabled() const;

    /// Sets the weight in the mixer's blend.
    /// \param weight any int, stored as it is; a negative weight subtracts the map.
    void setWeight(int weight);

    /// The weight in the mixer's blend; 0 unless set. Not const: the signature is fixed.
    int getWeight();

    /// Creates the image that a map is written into.
    /// \return an ARGB32 image of the size of \a source whose pixels are *not* initialised: a
    ///         method writes every pixel that it wants defined. Null when \a source is null.
    QImage createTargetImage(const QImage& source) const;

    /// Brings an image into QImage::Format_ARGB32.
    /// \return a copy that shares its data with \a source when that is ARGB32 already; a converted
    ///         copy of any other format, premultiplied ARGB32 included; null when \a source is
    ///         null.
    QImage adjustFormat(const QImage& source) const;

protected:
    /// Copying is for derived classes: the base alone would slice them.
    VXAbstractROI(const VXAbstractROI&) = default;
    /// As the copy constructor.
    VXAbstractROI& operator=(const VXAbstractROI&) = default;

private:
    bool enabled = true;
    int weight = 0;
};
