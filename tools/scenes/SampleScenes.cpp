#include "SampleScenes.h"

#include "Backgrounds.h"
#include "Subjects.h"
#include "Texture.h"

namespace scenes {

namespace {

const QSize landscape(1200, 800);
const QSize portrait(800, 1200);

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
