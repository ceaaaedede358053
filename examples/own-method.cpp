// own-method PICTURE MAP: blends a method of the host's own with those of the library.
#include <VXRegionOfInterest/VXAbstractROI.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <algorithm>
#include <iostream>

namespace {

/// Warm colours come forward: a pixel is salient when it is redder than it is blue.
class WarmthROI : public VXAbstractROI {
public:
    QImage evaluate(const QImage& image) override
    {
        const QImage words = adjustFormat(image); // ARGB32, whatever came in
        QImage map = createTargetImage(image); // as large, its pixels not yet set
        for (int y = 0; y < map.height(); ++y) {
            for (int x = 0; x < map.width(); ++x) {
                const QRgb pixel = words.pixel(x, y);
                const int level = std::max(0, qRed(pixel) - qBlue(pixel));
                map.setPixel(x, y, qRgb(level, level, level));
            }
        }
        return map;
    }
};

} // namespace

int main(int argc, char** argv)
{
    const QImage picture(argc == 3 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (picture.isNull()) {
        std::cerr << "usage: own-method PICTURE MAP\n";
        return 64;
    }
    VXSalienzMixer mixer(QSize(640, 480));

    // The maps of the mixer's methods, and its weights for them, in the same order.
    QList<QImage> maps = mixer.gatherResults(picture);
    QList<int> weights = mixer.gatherWeights();

    // Maps are blended pixel by pixel, so one's own must be as large as theirs.
    const QImage working = picture.scaled(maps.first().size());
    maps.append(WarmthROI().evaluate(working));
    weights.append(15);

    const QImage blended = mixer.mix(maps, weights);
    std::cout << maps.size() << " maps of " << blended.width() << " x " << blended.height() << '\n';
    return blended.save(QString::fromLocal8Bit(argv[2])) ? 0 : 74;
}
