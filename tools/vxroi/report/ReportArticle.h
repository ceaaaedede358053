#pragma once

#include "ReportEntry.h"

#include <QByteArray>

namespace vxroi {

/// The article of \a entry: HTML with its pictures in it.
/// \param position its place in the order given.
QByteArray articleOf(const ReportEntry& entry, int position);

} // namespace vxroi
