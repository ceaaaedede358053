#include "SoftWindow.h"

#include <algorithm>

namespace vx::crop {

SoftWindow::SoftWindow(const QList<long long>& gridSums, const Axis& windowAxis)
    : sums(gridSums)
    , axis(windowAxis)
    , positions(sums.size())
    , length(std::clamp(scaled(axis.windowLength, positions, axis.pictureLength), 1, positions))
{
    prefixSums.append(0);
    for (const long long sum : sums)
        prefixSums.append(prefixSums.last() + sum);
}

// With n positions in the window, the one k from an end lies a share of (k + 1/2) / n from it,
// so it weighs 0.9 + (k + 1/2) / 2 n, or 1. Times 20 n that is 20 n less 2 n - 10 k - 5, where
// that is above 0.
qint64 SoftWindow::heldFrom(int gridStart) const
{
    const int last = gridStart + length - 1;
    qint64 held = 20LL * length * (prefixSums.at(last + 1) - prefixSums.at(gridStart));
    for (int k = 0; 10 * k + 5 < 2 * length; ++k)
        held -= (2 * length - 10 * k - 5) * (sums.at(gridStart + k) + sums.at(last - k));
    return held;
}

int SoftWindow::gridStartOf(int pictureStart) const
{
    return axis.lastStart() == 0 ? 0 : scaled(pictureStart, lastGridStart(), axis.lastStart());
}

int SoftWindow::pictureStartOf(int gridStart) const
{
    return lastGridStart() == 0 ? axis.centreStart()
                                : scaled(gridStart, axis.lastStart(), lastGridStart());
}

} // namespace vx::crop
