#include "CropWindow.h"

namespace host {

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

QRect centredIn(const QSize& picture, const QSize& window)
{
    return QRect(
        QPoint((picture.width() - window.width()) / 2, (picture.height() - window.height()) / 2),
        window);
}

} // namespace host
