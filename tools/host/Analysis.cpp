#include "Analysis.h"

namespace host {

VXCrop analysisOf(PictureFile& picture, const VXCropSettings& salience)
{
    return VXCrop::fromWorkingImage(picture.readWorkingImage(), picture.orientedSize(), salience);
}

VXCrop analysisFromMap(const QString& path, const QSize& picture, const ReadingRules& rules)
{
    return VXCrop::fromMap(PictureFile(path, rules).readPixels(), picture);
}

} // namespace host
