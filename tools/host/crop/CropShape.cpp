#include "CropShape.h"

namespace host {

QString CropShape::fileName() const
{
    return QString(name).replace(QLatin1Char(':'), QLatin1Char('x'));
}

bool CropShape::isFilledBy(const QSize& crop) const
{
    return crop.width() >= size.width() && crop.height() >= size.height();
}

} // namespace host
