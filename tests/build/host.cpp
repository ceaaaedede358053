// A host program that has the library's sources compiled into it. It prints doubles bit by bit, whose
// last bits show whether products and sums are rounded apart.

#include "../install/cropping.h"

#include <VXRegionOfInterest/VXDisjointSet.h>
#include <VXRegionOfInterest/VXGaussianBlur.h>
#include <VXRegionOfInterest/VXHistogram.h>
#include <VXRegionOfInterest/VXSalienzAchanta.h>
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <iostream>

namespace {

// A picture without pattern, the same in every run.
QImage unevenPicture()
{
    QImage picture(300, 100, QImage::Format_RGB32);
    unsigned state = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            state = state * 1664525U + 1013904223U;
            picture.setPixel(x, y, 0xFF000000U | state >> 8U);
        }
    }
    return picture;
}

void printDoubles(const QImage& picture)
{
    QList<double> plane;
    for (int x = 0; x < picture.width(); ++x)
        plane.append(qRed(picture.pixel(x, 0)) / 7.0);
    QList<double> smoothed = plane;
    VXSalienzAchanta().gaussianSmooth(plane, 30, 10, { 0.3, 1.7, 0.9 }, smoothed);
    for (const double value : smoothed)
        std::cout << value << ' ';

    VXHistogram left(picture.copy(0, 0, 150, 100), 9, 9);
    VXHistogram right(picture.copy(150, 0, 150, 100), 9, 9);
    left.normalizeHistogram();
    right.normalizeHistogram();
    std::cout << left.compareHistogram(&right) << ' ';

    std::vector<QPoint> polygon;
    for (int i = 0; i < 40; ++i)
        polygon.emplace_back(picture.pixel(i, 1) % 30000, picture.pixel(i, 2) % 30000);
    const auto [x, y] = VXDisjointSet(1, 1).calculateCentroid(&polygon);
    std::cout << x << ' ' << y << ' ' << VXGaussianBlur::createGaussianKernel(7, 0).first() << '\n';
}

} // namespace

int main()
{
    std::cout << std::hexfloat;
    const QImage picture = unevenPicture();
    printDoubles(picture);

    VXSalienzMixer mixer(QSize(150, 150));
    const QImage map = mixer.analyze(picture);
    const int start = VXSalienzMaximizerHorizontal().startOfBestRange(map, 50);
    for (int x = 0; x < map.width(); ++x)
        std::cout << qRed(map.pixel(x, 25)) << ' ';
    std::cout << "\nmap " << map.width() << " x " << map.height() << ", start " << start << '\n';
    const bool isRight = cropping::isRight(cropping::squareOf(cropping::picture()));
    return isRight && map.size() == QSize(150, 50) && start >= 0 && start < 100 ? 0 : 1;
}
