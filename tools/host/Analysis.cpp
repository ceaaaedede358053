#include "Analysis.h"

#include "HostError.h"

namespace host {

VXCrop analysisOf(PictureFile& picture, const VXCropSettings& salience)
{
    return VXCrop::fromWorkingImage(picture.readWorkingImage(), picture.orientedSize(), salience);
}

VXCrop analysisFromMap(
    const QString& path, const QSize& picture, const ReadingRules& rules, QStringList& warnings)
try {
    PictureFile map(path, rules);
    VXCrop analysis = VXCrop::fromMap(map.readAll(), picture);
    for (const QString& warning : map.warnings())
        warnings.append(QStringLiteral("its map %1: %2").arg(onOneLine(path), warning));
    return analysis;
} catch (const HostError& error) {
    throw HostError(error.code(), path,
        QStringLiteral("not usable as a map: %1").arg(error.reason()), error.remedy());
}

} // namespace host
