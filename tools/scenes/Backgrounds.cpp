#include "Backgrounds.h"

#include "Texture.h"

#include <QPainter>
#include <QRadialGradient>

namespace scenes {

void paintSky(QImage& scene, const QColor& zenith, const QColor& horizon, const QColor& cloud)
{
    for (int y = 0; y < scene.height(); ++y) {
        const double height = static_cast<double>(y) / scene.height();
        const QColor clear = mixed(zenith, horizon, qMin(1.0, height * 1.4));
        for (int x = 0; x < scene.width(); ++x) {
            const double density = fractalNoise(x / 260.0, y / 90.0, 11) * 2.2 - 1.1;
            const double share = qBound(0.0, density, 0.75);
            scene.setPixel(x, y, mixed(clear, cloud, share).rgb());
        }
    }
}

void paintHill(QImage& scene, int crest, double roughness, const QColor& grass, unsigned seed)
{
    for (int x = 0; x < scene.width(); ++x) {
        const int top = crest - static_cast<int>(roughness * fractalNoise(x / 330.0, 0.5, seed));
        for (int y = qMax(top, 0); y < scene.height(); ++y) {
            const double tuft = fractalNoise(x / 9.0, y / 7.0, seed + 40);
            const double depth = qMin(1.0, (y - top) / 260.0);
            scene.setPixel(x, y, mixed(grass, Qt::black, 0.1 + 0.22 * tuft + 0.2 * depth).rgb());
        }
    }
}

void paintSea(QImage& scene, int horizon, const QColor& far, const QColor& near, int sunX)
{
    for (int y = horizon; y < scene.height(); ++y) {
        const double closeness = static_cast<double>(y - horizon) / (scene.height() - horizon);
        for (int x = 0; x < scene.width(); ++x) {
            const double wave
                = fractalNoise(x / (20 + 90 * closeness), y / (3 + 9 * closeness), 23);
            const double distance = qAbs(x - sunX) / (40.0 + 130 * closeness);
            const double glitter = qMax(0.0, 1 - distance) * qMax(0.0, wave * 2 - 0.75);
            const QColor water = mixed(far, near, closeness * 0.8 + (wave - 0.5) * 0.35 + 0.1);
            scene.setPixel(x, y, mixed(water, QColor(255, 214, 160), glitter * 0.7).rgb());
        }
    }
}

void paintMeadow(QImage& scene)
{
    for (int y = 0; y < scene.height(); ++y) {
        for (int x = 0; x < scene.width(); ++x) {
            const double light = fractalNoise(x / 240.0, y / 240.0, 31);
            const double shade = static_cast<double>(y) / scene.height();
            const QColor green = mixed(QColor(128, 164, 84), QColor(40, 78, 44), light);
            scene.setPixel(x, y, mixed(green, QColor(24, 48, 30), 0.55 * shade).rgb());
        }
    }
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 46; ++i) {
        const QPointF centre(valueNoise(i * 7.3, 0.2, 51) * scene.width() * 1.2 - 80,
            valueNoise(i * 5.9, 0.7, 52) * scene.height() * 0.7);
        const double radius = 18 + 46 * valueNoise(i * 3.1, 0.4, 53);
        QRadialGradient disc(centre, radius);
        disc.setColorAt(0, QColor(206, 224, 150, 46));
        disc.setColorAt(0.85, QColor(206, 224, 150, 40));
        disc.setColorAt(1, QColor(206, 224, 150, 0));
        painter.setPen(Qt::NoPen);
        painter.setBrush(disc);
        painter.drawEllipse(centre, radius, radius);
    }
}

} // namespace scenes
