#include "Subjects.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

namespace scenes {

namespace {

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

} // namespace

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

} // namespace scenes
