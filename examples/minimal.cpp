// minimal PICTURE CROPPED: crops a picture to the square that keeps most of what draws the eye.
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <QImageReader>

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

// The picture as it is seen: cameras store it as the sensor saw it and note how to turn it.
QImage orientedPicture(const QString& path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    return reader.read();
}

QRect bestSquare(const QImage& picture)
{
    // The map is that of the working image: the picture, scaled to fit into 640 × 480.
    const QImage map = VXSalienzMixer(QSize(640, 480)).analyze(picture);

    // A strip as long as the shorter side slides along the longer one.
    const bool isWide = map.width() >= map.height();
    std::unique_ptr<VXSalienzMaximizerAbstract> maximizer;
    if (isWide)
        maximizer = std::make_unique<VXSalienzMaximizerHorizontal>();
    else
        maximizer = std::make_unique<VXSalienzMaximizerVertical>();
    const int start = maximizer->startOfBestRange(map, std::min(map.width(), map.height()));

    // Back to picture pixels; rounding must not push the square out of the picture.
    const int side = std::min(picture.width(), picture.height());
    const int left = isWide ? start * picture.width() / map.width() : 0;
    const int top = isWide ? 0 : start * picture.height() / map.height();
    return { std::min(left, picture.width() - side), std::min(top, picture.height() - side), side,
        side };
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: minimal PICTURE CROPPED\n";
        return 64;
    }
    const QImage picture = orientedPicture(QString::fromLocal8Bit(argv[1]));
    if (picture.isNull()) {
        std::cerr << argv[1] << ": no picture\n";
        return 65;
    }
    const QRect square = bestSquare(picture);
    std::cout << square.width() << 'x' << square.height() << '+' << square.x() << '+' << square.y()
              << '\n';
    return picture.copy(square).save(QString::fromLocal8Bit(argv[2])) ? 0 : 74;
}
