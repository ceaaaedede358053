#include "SampleScenes.h"

#include "Texture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace scenes {

namespace {

const QSize landscape(1200, 800);
const QSize portrait(800, 1200);

// A sky that pales towards the horizon, with clouds where the noise is high.
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

// A hill whose outline is noise, filled downwards from it with grass.
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

// The envelope narrows to the mouth, from which the basket hangs.
QPainterPath envelopePath(const QPointF& centre, double radius)
{
    QPainterPath path(centre + QPointF(-radius, 0));
    path.arcTo(QRectF(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)), 180, -180);
    path.cubicTo(centre + QPointF(radius, 0.7 * radius), centre + QPointF(0.4 * radius, radius),
        centre + QPointF(0.2 * radius, 1.45 * radius));
    path.lineTo(centre + QPointF(-0.2 * radius, 1.45 * radius));
    path.cubicTo(centre + QPointF(-0.4 * radius, radius), centre + QPointF(-radius, 0.7 * radius),
        centre + QPointF(-radius, 0));
    return path;
}

void paintBalloon(QPainter& painter, const QPointF& centre, double radius)
{
    QRadialGradient cloth(centre - QPointF(0.35 * radius, 0.35 * radius), 1.9 * radius);
    cloth.setColorAt(0, QColor(250, 74, 50));
    cloth.setColorAt(1, QColor(110, 8, 14));
    painter.fillPath(envelopePath(centre, radius), cloth);

    painter.setClipPath(envelopePath(centre, radius));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 206, 60, 225));
    painter.drawEllipse(centre + QPointF(0, 0.2 * radius), 0.22 * radius, 1.6 * radius);
    painter.setClipping(false);

    painter.setPen(QPen(QColor(60, 40, 30), 2));
    const QPointF basket = centre + QPointF(0, 1.95 * radius);
    painter.drawLine(centre + QPointF(-0.2 * radius, 1.45 * radius), basket);
    painter.drawLine(centre + QPointF(0.2 * radius, 1.45 * radius), basket);
    painter.fillRect(QRectF(basket - QPointF(0.17 * radius, 0.05 * radius),
                         QSizeF(0.34 * radius, 0.26 * radius)),
        QColor(104, 66, 34));
}

// Water that reflects the sky in short, flat waves, with a path of sunlight on it.
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

void paintSailboat(QPainter& painter, const QPointF& foot, double height)
{
    QPainterPath mainSail(foot + QPointF(0.02 * height, -0.1 * height));
    mainSail.lineTo(foot + QPointF(0.02 * height, -height));
    mainSail.quadTo(foot + QPointF(0.42 * height, -0.5 * height),
        foot + QPointF(0.46 * height, -0.12 * height));
    QLinearGradient canvas(foot, foot + QPointF(0.46 * height, 0));
    canvas.setColorAt(0, QColor(255, 252, 244));
    canvas.setColorAt(1, QColor(226, 206, 190));
    painter.fillPath(mainSail, canvas);

    QPainterPath jib(foot + QPointF(-0.02 * height, -0.9 * height));
    jib.quadTo(foot + QPointF(-0.14 * height, -0.45 * height),
        foot + QPointF(-0.34 * height, -0.12 * height));
    jib.lineTo(foot + QPointF(-0.02 * height, -0.14 * height));
    painter.fillPath(jib, QColor(214, 48, 42));

    QPainterPath hull(foot + QPointF(-0.4 * height, -0.08 * height));
    hull.lineTo(foot + QPointF(0.46 * height, -0.08 * height));
    hull.lineTo(foot + QPointF(0.36 * height, 0.03 * height));
    hull.lineTo(foot + QPointF(-0.28 * height, 0.03 * height));
    painter.fillPath(hull, QColor(38, 32, 46));
}

// Out-of-focus leaves and lights: soft discs over mottled green.
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

void paintPoppy(QPainter& painter, const QPointF& centre, double radius)
{
    QPainterPath stem(centre);
    stem.cubicTo(centre + QPointF(18, 120), centre + QPointF(-34, 260), centre + QPointF(-6, 480));
    painter.strokePath(stem, QPen(QColor(66, 104, 50), 11, Qt::SolidLine, Qt::RoundCap));

    for (int petal = 0; petal < 5; ++petal) {
        painter.save();
        painter.translate(centre);
        painter.rotate(petal * 72.0 - 18);
        QRadialGradient silk(QPointF(0, -0.1 * radius), 1.1 * radius);
        silk.setColorAt(0, QColor(122, 20, 8));
        silk.setColorAt(0.35, QColor(226, 74, 18));
        silk.setColorAt(1, QColor(255, 150, 44));
        painter.setPen(QPen(QColor(150, 44, 10, 120), 2));
        painter.setBrush(silk);
        painter.drawEllipse(QPointF(0, -0.52 * radius), 0.5 * radius, 0.56 * radius);
        painter.restore();
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(44, 40, 30));
    painter.drawEllipse(centre, 0.19 * radius, 0.19 * radius);
    painter.setBrush(QColor(154, 160, 82));
    painter.drawEllipse(centre, 0.1 * radius, 0.1 * radius);
}

} // namespace

const QVector<Scene>& sampleScenes()
{
    static const QVector<Scene> scenes = {
        { QStringLiteral("balloon"), drawBalloon },
        { QStringLiteral("sailboat"), drawSailboat },
        { QStringLiteral("poppy"), drawPoppy },
    };
    return scenes;
}

QImage drawBalloon()
{
    QImage scene(landscape, QImage::Format_RGB32);
    paintSky(scene, QColor(58, 112, 178), QColor(198, 216, 226), QColor(240, 240, 238));
    paintHill(scene, 660, 150, QColor(112, 144, 122), 3);
    paintHill(scene, 760, 190, QColor(96, 128, 60), 5);
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBalloon(painter, QPointF(905, 250), 118);
    painter.end();
    addGrainAndVignette(scene, 71);
    return scene;
}

QImage drawSailboat()
{
    constexpr int horizon = 470;
    QImage scene(landscape, QImage::Format_RGB32);
    paintSky(scene, QColor(70, 84, 136), QColor(244, 178, 130), QColor(214, 164, 160));
    paintSea(scene, horizon, QColor(196, 150, 138), QColor(34, 46, 78), 760);
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::Antialiasing);
    paintSailboat(painter, QPointF(270, 560), 300);
    painter.end();
    addGrainAndVignette(scene, 72);
    return scene;
}

QImage drawPoppy()
{
    QImage scene(portrait, QImage::Format_RGB32);
    paintMeadow(scene);
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPoppy(painter, QPointF(430, 840), 150);
    painter.end();
    addGrainAndVignette(scene, 73);
    return scene;
}

} // namespace scenes
