#pragma once

#include <VXCrop/VXCrop.h>

#include <QImage>
#include <QRect>

/// What every host program of these tests does: crop a picture to a square, and look at the rectangle.
namespace cropping {

/// Where the subject of the picture is, the only thing in it.
inline QRect subject() { return { 390, 90, 120, 120 }; }

/// A grey picture of 600 by 300 pixels with a red square off the middle.
inline QImage picture()
{
    QImage image(600, 300, QImage::Format_RGB32);
    image.fill(qRgb(120, 120, 120));
    for (int y = subject().top(); y <= subject().bottom(); ++y) {
        for (int x = subject().left(); x <= subject().right(); ++x)
            image.setPixel(x, y, qRgb(200, 30, 20));
    }
    return image;
}

/// The square to keep of it.
inline QRect squareOf(const QImage& image) { return VXCrop(image).window(QSize(1, 1)).window; }

/// Whether the square lies in the picture and has the whole subject in it.
inline bool isRight(const QRect& square)
{
    return picture().rect().contains(square) && square.contains(subject());
}

} // namespace cropping
