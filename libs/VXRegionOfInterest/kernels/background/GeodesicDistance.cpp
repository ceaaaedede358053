#include "../image/ExactArithmetic.h"

#include "BackgroundDistances.h"

#include <QPoint>

#include <array>
#include <functional>
#include <limits>
#include <queue>
#include <utility>

namespace {

using namespace vx::kernels;

constexpr double infinite = std::numeric_limits<double>::infinity();

Cells<Lab> averaged(const Cells<Lab>& colours, const QSize& grid)
{
    Cells<Lab> means(grid);
    Cells<int> counts(grid);
    for (int y = 0; y < colours.rows(); ++y) {
        for (int x = 0; x < colours.columns(); ++x) {
            const int column = x * grid.width() / colours.columns();
            const int row = y * grid.height() / colours.rows();
            Lab& sum = means.at(column, row);
            sum.lightness += colours.at(x, y).lightness;
            sum.a += colours.at(x, y).a;
            sum.b += colours.at(x, y).b;
            ++counts.at(column, row);
        }
    }
    std::transform(
        means.begin(), means.end(), counts.begin(), means.begin(), [](const Lab& sum, int count) {
            return Lab { sum.lightness / count, sum.a / count, sum.b / count };
        });
    return means;
}

// Calls visit(column, row) for each neighbour of a cell.
template <typename Visit>
void forEachNeighbour(const Cells<Lab>& colours, const QPoint& cell, const Visit& visit)
{
    const int lastColumn = std::min(cell.x() + 1, colours.columns() - 1);
    const int lastRow = std::min(cell.y() + 1, colours.rows() - 1);
    for (int y = std::max(cell.y() - 1, 0); y <= lastRow; ++y) {
        for (int x = std::max(cell.x() - 1, 0); x <= lastColumn; ++x) {
            if (QPoint(x, y) != cell)
                visit(x, y);
        }
    }
}

// The mean over all cells of the difference to the most similar neighbour, which is 0 for a cell without neighbours.
double meanLeastDifference(const Cells<Lab>& colours)
{
    double sum = 0;
    for (int y = 0; y < colours.rows(); ++y) {
        for (int x = 0; x < colours.columns(); ++x) {
            double least = infinite;
            forEachNeighbour(colours, { x, y }, [&](int column, int row) {
                least = std::min(least, distance(colours.at(x, y), colours.at(column, row)));
            });
            sum += least < infinite ? least : 0;
        }
    }
    return sum / (colours.columns() * colours.rows());
}

// Dijkstra's algorithm, from all cells of the border at once.
class ShortestPaths {
public:
    explicit ShortestPaths(const Cells<Lab>& cellColours)
        : colours(cellColours)
        , free(meanLeastDifference(colours))
        , lengths(QSize(colours.columns(), colours.rows()), infinite)
    {
        for (int y = 0; y < colours.rows(); ++y) {
            for (int x = 0; x < colours.columns(); ++x) {
                if (x == 0 || x == colours.columns() - 1 || y == 0 || y == colours.rows() - 1)
                    reach({ x, y }, 0);
            }
        }
        while (!reached.empty()) {
            const auto [length, place] = reached.top();
            reached.pop();
            const QPoint cell(place % colours.columns(), place / colours.columns());
            const bool isShortest = length == lengths.at(cell.x(), cell.y());
            if (isShortest)
                relaxNeighbours(cell, length);
        }
    }

    const Cells<double>& toBorder() const { return lengths; }

private:
    void reach(const QPoint& cell, double length)
    {
        lengths.at(cell.x(), cell.y()) = length;
        reached.emplace(length, cell.y() * colours.columns() + cell.x());
    }

    void relaxNeighbours(const QPoint& from, double length)
    {
        forEachNeighbour(colours, from, [&](int column, int row) {
            const double difference
                = distance(colours.at(from.x(), from.y()), colours.at(column, row));
            const double longer = length + std::max(difference - free, 0.0);
            if (longer < lengths.at(column, row))
                reach({ column, row }, longer);
        });
    }

    using Reached = std::pair<double, int>;

    const Cells<Lab>& colours;
    double free; // how much of a difference costs nothing
    Cells<double> lengths;
    std::priority_queue<Reached, std::vector<Reached>, std::greater<>> reached;
};

} // namespace

Cells<double> vx::kernels::geodesicDistance(const Cells<Lab>& colours, const QSize& grid)
{
    const Cells<Lab> coarse = averaged(colours, grid);
    Cells<double> distances
        = enlarged(ShortestPaths(coarse).toBorder(), QSize(colours.columns(), colours.rows()));
    stretch(distances);
    return distances;
}
