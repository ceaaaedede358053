// keep-areas PICTURE: lets what a detector found count in the salience map.
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <iostream>

namespace {

/// Stands for a detector of faces, text or products: the box around all strongly red pixels.
QList<QRect> detect(const QImage& picture)
{
    QRect box;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qRed(pixel) > 150 && qGreen(pixel) < 80 && qBlue(pixel) < 80)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box.isNull() ? QList<QRect>() : QList<QRect> { box };
}

/// Areas of the picture in pixels of the working image, which is what the mixer analyses.
QList<QRect> scaled(const QList<QRect>& areas, const QSize& picture, const QSize& working)
{
    QList<QRect> result;
    for (const QRect& area : areas)
        result.append(QRect(area.x() * working.width() / picture.width(),
            area.y() * working.height() / picture.height(),
            area.width() * working.width() / picture.width(),
            area.height() * working.height() / picture.height()));
    return result;
}

int startOfBestSquare(const QImage& map)
{
    return VXSalienzMaximizerHorizontal().startOfBestRange(map, map.height());
}

} // namespace

int main(int argc, char** argv)
{
    const QImage picture(argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (picture.isNull()) {
        std::cerr << "usage: keep-areas PICTURE\n";
        return 64;
    }
    // The working image is scaled here, so that its size is known before it is analysed.
    const QImage working = picture.scaled(QSize(640, 480), Qt::KeepAspectRatio);
    VXSalienzMixer mixer { QSize() }; // scales nothing
    std::cout << "without areas: from column " << startOfBestSquare(mixer.analyze(working)) << '\n';

    const QList<QRect> areas = detect(picture);
    mixer.injectVeryImportantAreas(scaled(areas, picture.size(), working.size()), working.size());
    std::cout << "with " << areas.size() << " area: from column "
              << startOfBestSquare(mixer.analyze(working)) << '\n';
    return 0;
}
