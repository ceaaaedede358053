#include "CropWindow.h"

#include "HostError.h"

namespace host {

namespace {

void cutOff(QVector<QRect>& areas, const QSize& picture, const char* option)
{
    for (QRect& area : areas) {
        const QRect part = area & QRect(QPoint(), picture);
        if (part.isEmpty())
            throw HostError(ExitCode::Usage,
                QStringLiteral("%1 %2,%3,%4,%5")
                    .arg(QLatin1String(option))
                    .arg(area.x())
                    .arg(area.y())
                    .arg(area.width())
                    .arg(area.height()),
                QStringLiteral("lies outside the picture of %1 x %2 pixels")
                    .arg(picture.width())
                    .arg(picture.height()),
                QStringLiteral("give left, top, width and height in pixels"));
        area = part;
    }
}

} // namespace

QString nameOf(VXCropReason reason)
{
    switch (reason) {
    case VXCropReason::WholePicture:
        return QStringLiteral("whole");
    case VXCropReason::Focus:
        return QStringLiteral("focus");
    case VXCropReason::Keep:
        return QStringLiteral("keep");
    case VXCropReason::Avoid:
        return QStringLiteral("avoid");
    case VXCropReason::Salience:
        return QStringLiteral("salience");
    case VXCropReason::Centre:
        break;
    }
    return QStringLiteral("centre");
}

QString geometryOf(const QRect& window)
{
    return QStringLiteral("%1x%2+%3+%4")
        .arg(window.width())
        .arg(window.height())
        .arg(window.x())
        .arg(window.y());
}

VXCropConstraints within(const QSize& picture, VXCropConstraints constraints)
{
    cutOff(constraints.keep, picture, "--keep");
    cutOff(constraints.avoid, picture, "--avoid");
    return constraints;
}

QRect centredIn(const QSize& picture, const QSize& window)
{
    return QRect(
        QPoint((picture.width() - window.width()) / 2, (picture.height() - window.height()) / 2),
        window);
}

} // namespace host
