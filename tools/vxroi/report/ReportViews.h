#pragma once

#include "ReportEntry.h"

#include <QString>

/// \file
/// What a report has to look at. Each picture and each map is in the page once; its crops are views of it.

namespace vxroi {

/// A number as the page shows it: "83.1 %". It is the same whether the share comes from a record or not.
QString percent(double share);

/// The picture of \a entry with its windows outlined and labelled, hidden heat over it, and its crops, chosen and
/// centred. \pre it has a thumbnail.
/// \param position that of the entry in the page, which tells its picture from others.
QString viewsOf(const ReportEntry& entry, int position);

/// The maps of single methods, stretched; nothing when there are none.
QString methodMapsOf(const ReportEntry& entry);

} // namespace vxroi
