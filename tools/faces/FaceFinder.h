#pragma once

#include "host/picture/PictureFile.h"
#include "host/records/Faces.h"

#include <QVector>

#include <memory>

namespace faces {

/// Finds frontal faces with the detector of dlib: histograms of oriented gradients, rated by a linear classifier in a
/// sliding window of 80 x 80 pixels, at many sizes of the picture. N. Dalal, B. Triggs, "Histograms of Oriented
/// Gradients for Human Detection", CVPR 2005.
class FaceFinder {
public:
    /// \param size the longer side at which pictures are searched, in pixels; smaller ones are enlarged. A face must
    /// be about 80 pixels wide then.
    /// \param threshold the least score: 0 is what the classifier takes for a face; higher finds fewer.
    FaceFinder(int size, double threshold);
    ~FaceFinder();
    FaceFinder(const FaceFinder&) = delete;
    FaceFinder& operator=(const FaceFinder&) = delete;

    /// The faces in a picture, the surest first; at most host::mostFaces.
    /// \throws host::HostError when the picture is damaged.
    /// \throws std::bad_alloc
    QVector<host::Face> find(host::PictureFile& picture);

private:
    struct Detector;

    int longerSide;
    double leastScore;
    std::unique_ptr<Detector> detector;
};

} // namespace faces
