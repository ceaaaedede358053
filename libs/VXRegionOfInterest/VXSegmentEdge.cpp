#include "VXSegmentEdge.h"

VXSegmentEdge::VXSegmentEdge() = default;

VXSegmentEdge::VXSegmentEdge(int from, int to, double weight)
    : fromIndex(from)
    , toIndex(to)
    , edgeWeight(weight)
{
}

int VXSegmentEdge::from() const { return fromIndex; }

int VXSegmentEdge::to() const { return toIndex; }

double VXSegmentEdge::weight() const { return edgeWeight; }

bool VXSegmentEdge::operator<(const VXSegmentEdge& other) const
{
    return other.edgeWeight > edgeWeight;
}
