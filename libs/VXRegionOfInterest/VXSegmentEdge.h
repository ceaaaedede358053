#pragma once

#include "VXRegionOfInterestExport.h"

/// An edge between two elements of a VXDisjointSet and what merging them costs; a plain value,
/// whose copies and destruction are those of two ints and a double.
class VXREGIONOFINTEREST_EXPORT VXSegmentEdge {
public:
    /// Both indices are 0, the weight is 0.0.
    VXSegmentEdge();

    /// \param from,to indices of the elements.
    /// \param weight cost of merging them; the lower merges first.
    VXSegmentEdge(int from, int to, double weight);

    /// The index of the first element.
    int from() const;

    /// The index of the second element.
    int to() const;

    /// What merging the two costs.
    double weight() const;

    /// Whether this edge merges before \a other: its weight is smaller. False when either is not a
    /// number, so edges with such weights are no strict weak order; take them out before sorting.
    bool operator<(const VXSegmentEdge& other) const;

private:
    int fromIndex = 0;
    int toIndex = 0;
    double edgeWeight = 0.0;
};
