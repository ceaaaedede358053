#pragma once

#include "BytePlane.h"
#include "loops/RowLoops.h"

#include <functional>

namespace vx::kernels {

/// Spreads keys along rows and columns: calls \a receive for every row, from the first on, with the
/// greatest keys that reach its pixels, those along the row and those along the columns.
/// \param keys what spreads; 0 does not. Not empty.
/// \param arm how far they reach to either side, in pixels; not negative.
void spreadKeys(const BytePlane& keys, int arm, const RowLoops& loops,
    const std::function<void(int y, const quint8* alongRow, const quint8* alongColumns)>& receive);

} // namespace vx::kernels
