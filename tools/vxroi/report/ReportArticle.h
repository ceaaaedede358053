#pragma once

#include "ReportEntry.h"

#include <QByteArray>

namespace vxroi {

/// The article for \a entry: HTML with its pictures embedded.
/// \param position the index of the entry in the order given, from 0.
QByteArray articleOf(const ReportEntry& entry, int position);

} // namespace vxroi
