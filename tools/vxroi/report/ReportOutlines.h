#pragma once

#include "host/records/CropRecord.h"

#include <QString>

namespace vxroi {

/// The outlines of the faces and the windows of \a record, the windows labelled with their shapes: SVG elements in units
/// of picture pixels.
QString outlinesOf(const host::CropRecord& record);

/// A sample of the outline of a shape, for the legend.
/// \param shapePosition the index of the shape among those of its picture, from 0.
QString keyOf(int shapePosition);

} // namespace vxroi
