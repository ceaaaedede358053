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

// With n positions in the window, the middle of the one k from an end lies a share of (k + 1/2) / n from it. It weighs 0.9
// there, 1 from a fifth on, and in between 0.9 + (k + 1/2) / 2 n. All of that times 20 n is a whole number.
qint64 SoftWindow::heldFrom(int gridStart) const
{
    constexpr int weightInside = 20;
    constexpr int weightAtEnd = 18;
    constexpr int softPartsOfLength = 5;
    constexpr int lessAtEnd = weightInside - weightAtEnd;
    const int last = gridStart + length - 1;
    const auto less = [this](int k) {
        return lessAtEnd * length - softPartsOfLength * lessAtEnd * (2 * k + 1) / 2;
    };
    qint64 held
        = qint64 { weightInside } * length * (prefixSums.at(last + 1) - prefixSums.at(gridStart));
    for (int k = 0; less(k) > 0; ++k)
        held -= less(k) * (sums.at(gridStart + k) + sums.at(last - k));
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
