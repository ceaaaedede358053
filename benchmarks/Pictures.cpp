#include "Pictures.h"

#include "scenes/SampleScenes.h"
#include "support/TestImages.h"

#include <QColor>
#include <QMap>

#include <utility>

namespace {

using benchmarks::Kind;

// Opaque grey, of levels from `least` to `least` + 99.
QImage greyNoise(const QSize& size, unsigned least)
{
    QImage image = support::noise(size.width(), size.height(), least);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = 0xFF000000U | (least + row[x] % 100U) * 0x010101U;
    }
    return image;
}

QImage drawn(Kind kind, const QSize& size)
{
    switch (kind) {
    case Kind::Photo:
        return scenes::drawBalloon().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    case Kind::Noise:
        return support::noise(size.width(), size.height(), 1);
    case Kind::Bright:
        return greyNoise(size, 151);
    case Kind::Dark:
        return greyNoise(size, 0);
    case Kind::Flat:
        break;
    }
    QImage flat(size, QImage::Format_RGB32);
    flat.fill(QColor(90, 140, 60));
    return flat;
}

} // namespace

const char* benchmarks::nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Photo:
        return "photo";
    case Kind::Noise:
        return "noise";
    case Kind::Flat:
        return "flat";
    case Kind::Bright:
        return "bright";
    case Kind::Dark:
        return "dark";
    }
    return "";
}

const QVector<QSize>& benchmarks::sizes()
{
    static const QVector<QSize> all { { 320, 240 }, { 640, 480 }, { 1920, 1280 }, { 6000, 4000 } };
    return all;
}

const QImage& benchmarks::picture(Kind kind, const QSize& size)
{
    static QMap<std::pair<Kind, int>, QImage> pictures;
    QImage& image = pictures[std::pair(kind, size.width())];
    if (image.isNull())
        image = drawn(kind, size);
    return image;
}

QImage benchmarks::mapFor(const QImage& image)
{
    return QImage(image.size(), QImage::Format_ARGB32);
}
