#include "Json.h"

namespace host {

QJsonObject jsonOf(const QSize& size)
{
    return { { QStringLiteral("width"), size.width() },
        { QStringLiteral("height"), size.height() } };
}

QJsonObject jsonOf(const QRect& rect)
{
    QJsonObject object = jsonOf(rect.size());
    object.insert(QStringLiteral("x"), rect.x());
    object.insert(QStringLiteral("y"), rect.y());
    return object;
}

} // namespace host
