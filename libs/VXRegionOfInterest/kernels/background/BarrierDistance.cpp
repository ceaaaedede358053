#include "../image/ExactArithmetic.h"

#include "BackgroundDistances.h"

#include <array>
#include <limits>

namespace {

using namespace vx::kernels;

// The channels L, a and b, and an idle one, so that they fill a vector.
constexpr std::size_t lanes = 4;
using Channels = std::array<double, lanes>;

// The best path from a cell to the border found so far, in each channel.
struct Path {
    Channels highest; // on the path
    Channels lowest;
    Channels barrier; // highest less lowest; infinite before a path has been found
};

Cells<Channels> smoothed(const Cells<Lab>& colours)
{
    const QSize size(colours.columns(), colours.rows());
    const auto weighted
        = [](double before, double here, double after) { return (before + 2 * here + after) / 4; };
    Cells<Channels> along(size);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const Lab& before = colours.at(std::max(x - 1, 0), y);
            const Lab& here = colours.at(x, y);
            const Lab& after = colours.at(std::min(x + 1, size.width() - 1), y);
            along.at(x, y) = { weighted(before.lightness, here.lightness, after.lightness),
                weighted(before.a, here.a, after.a), weighted(before.b, here.b, after.b), 0 };
        }
    }
    Cells<Channels> smooth(size);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const Channels& before = along.at(x, std::max(y - 1, 0));
            const Channels& here = along.at(x, y);
            const Channels& after = along.at(x, std::min(y + 1, size.height() - 1));
            for (std::size_t lane = 0; lane < lanes; ++lane)
                smooth.at(x, y)[lane] = weighted(before[lane], here[lane], after[lane]);
        }
    }
    return smooth;
}

// Extends a neighbour's path to this cell where its barrier is lower. Without branches, because which path is lower is
// hard to predict.
inline void improve(Path& path, const Channels& here, const Path& neighbour)
{
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        const double highest = std::max(neighbour.highest[lane], here[lane]);
        const double lowest = std::min(neighbour.lowest[lane], here[lane]);
        const double barrier = highest - lowest;
        const bool isLower = barrier < path.barrier[lane];
        path.highest[lane] = isLower ? highest : path.highest[lane];
        path.lowest[lane] = isLower ? lowest : path.lowest[lane];
        path.barrier[lane] = isLower ? barrier : path.barrier[lane];
    }
}

void passDown(const Cells<Channels>& image, Cells<Path>& paths)
{
    for (int y = 1; y < image.rows() - 1; ++y) {
        for (int x = 1; x < image.columns() - 1; ++x) {
            improve(paths.at(x, y), image.at(x, y), paths.at(x, y - 1));
            improve(paths.at(x, y), image.at(x, y), paths.at(x - 1, y));
        }
    }
}

void passUp(const Cells<Channels>& image, Cells<Path>& paths)
{
    for (int y = image.rows() - 2; y > 0; --y) {
        for (int x = image.columns() - 2; x > 0; --x) {
            improve(paths.at(x, y), image.at(x, y), paths.at(x, y + 1));
            improve(paths.at(x, y), image.at(x, y), paths.at(x + 1, y));
        }
    }
}

// The paths before the first pass: at the border every path ends at once, and elsewhere none is known.
Cells<Path> initialPaths(const Cells<Channels>& image)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr Channels none { infinite, infinite, infinite, infinite };
    const QSize size(image.columns(), image.rows());
    Cells<Path> paths(size);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool isInner = x > 0 && x < size.width() - 1 && y > 0 && y < size.height() - 1;
            paths.at(x, y) = { image.at(x, y), image.at(x, y), isInner ? none : Channels() };
        }
    }
    return paths;
}

} // namespace

Cells<double> vx::kernels::barrierDistance(const Cells<Lab>& colours)
{
    const Cells<Channels> image = smoothed(colours);
    Cells<Path> paths = initialPaths(image);
    passDown(image, paths);
    passUp(image, paths);
    passDown(image, paths);
    Cells<double> distances(QSize(colours.columns(), colours.rows()));
    std::transform(paths.begin(), paths.end(), distances.begin(),
        [](const Path& path) { return path.barrier[0] + path.barrier[1] + path.barrier[2]; });
    stretch(distances);
    return distances;
}
