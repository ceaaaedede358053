#pragma once

#include "host/records/CropRecord.h"

#include <QString>

namespace vxroi {

/// The windows of \a record as lines with the names of their shapes, in SVG whose units are the pixels of the picture.
QString outlinesOf(const host::CropRecord& record);

/// A sample of the line of a shape, to stand beside its name.
/// \param shapePosition of the shape among those of its picture.
QString keyOf(int shapePosition);

} // namespace vxroi
