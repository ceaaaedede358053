#pragma once

#include "ReportEntry.h"

#include <QString>

/// \file
/// The pictures in a report. Each picture and each map is embedded in the page once; crops are views of it.

namespace vxroi {

/// A share as the page shows it: "83.1 %". It is rounded as in records first, so that both sources give equal pages.
QString percent(double share);

/// The picture of \a entry with its windows outlined and labelled and its map as heat, hidden at first, followed by its
/// chosen and its centred crops. \pre the entry has a thumbnail.
/// \param position the index of the entry in the page, for the id of its picture.
QString viewsOf(const ReportEntry& entry, int position);

/// The maps of single methods, stretched; empty when there are none.
QString methodMapsOf(const ReportEntry& entry);

} // namespace vxroi
