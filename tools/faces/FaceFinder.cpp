#include "FaceFinder.h"

#include "host/picture/ImageMemory.h"

#include <QImage>

#include <dlib/array2d.h>
#include <dlib/image_processing/frontal_face_detector.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace faces {

struct FaceFinder::Detector {
    dlib::frontal_face_detector ofDlib = dlib::get_frontal_face_detector();
};

namespace {

// Searching all colours takes a quarter more time and finds hardly more.
dlib::array2d<unsigned char> greyLevelsOf(const QImage& picture)
{
    const QImage grey = host::notNull(picture.convertToFormat(QImage::Format_Grayscale8));
    dlib::array2d<unsigned char> levels(grey.height(), grey.width());
    for (int y = 0; y < grey.height(); ++y)
        std::copy_n(grey.constScanLine(y), grey.width(), &levels[y][0]);
    return levels;
}

// Processors differ in the order of their additions, and in the sixth digit of a score.
double rounded(double score) { return std::round(score * 1000) / 1000; }

// The pixels of a picture that a box touches, \a scale picture pixels to a pixel of the box.
QRect inPicture(const dlib::rectangle& box, double scale, const QSize& picture)
{
    const QPoint first(static_cast<int>(std::floor(static_cast<double>(box.left()) * scale)),
        static_cast<int>(std::floor(static_cast<double>(box.top()) * scale)));
    const QPoint last(static_cast<int>(std::ceil(static_cast<double>(box.right() + 1) * scale)) - 1,
        static_cast<int>(std::ceil(static_cast<double>(box.bottom() + 1) * scale)) - 1);
    return QRect(first, last) & QRect(QPoint(), picture);
}

} // namespace

FaceFinder::FaceFinder(int size, double threshold)
    : longerSide(size)
    , leastScore(threshold)
    , detector(std::make_unique<Detector>())
{
}

FaceFinder::~FaceFinder() = default;

QVector<host::Face> FaceFinder::find(host::PictureFile& picture)
{
    const QSize original = picture.orientedSize();
    const QSize searched
        = original.scaled(longerSide, longerSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    const double scale = static_cast<double>(std::max(original.width(), original.height()))
        / std::max(searched.width(), searched.height());
    std::vector<dlib::rect_detection> found;
    detector->ofDlib(greyLevelsOf(picture.readScaled(searched)), found, leastScore);
    QVector<host::Face> faces;
    for (const dlib::rect_detection& one : found) {
        const QRect box = inPicture(one.rect, scale, original);
        if (!box.isEmpty() && faces.size() < host::mostFaces)
            faces.append({ box, rounded(one.detection_confidence) });
    }
    return faces;
}

} // namespace faces
