#include "../image/ExactArithmetic.h"

#include "BackgroundDistances.h"

#include <array>
#include <limits>

namespace {

using namespace vx::kernels;

// The channels L, a and b, and an idle one: as many as vectors of processors have.
constexpr std::size_t lanes = 4;
using Channels = std::array<double, lanes>;

// The way from a cell to the border that has been found so far.
struct Way {
    Channels highest; // on the way
    Channels lowest;
    Channels barrier; // highest less lowest, or infinite where none has been found
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
    Cells<Channels> both(size);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const Channels& before = along.at(x, std::max(y - 1, 0));
            const Channels& here = along.at(x, y);
            const Channels& after = along.at(x, std::min(y + 1, size.height() - 1));
            for (std::size_t lane = 0; lane < lanes; ++lane)
                both.at(x, y)[lane] = weighted(before[lane], here[lane], after[lane]);
        }
    }
    return both;
}

// Goes on along a neighbour's way where its barrier is lower. Without branches: which way is lower is
// hard to predict.
inline void improve(Way& way, const Channels& here, const Way& neighbour)
{
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        const double highest = std::max(neighbour.highest[lane], here[lane]);
        const double lowest = std::min(neighbour.lowest[lane], here[lane]);
        const double barrier = highest - lowest;
        const bool isLower = barrier < way.barrier[lane];
        way.highest[lane] = isLower ? highest : way.highest[lane];
        way.lowest[lane] = isLower ? lowest : way.lowest[lane];
        way.barrier[lane] = isLower ? barrier : way.barrier[lane];
    }
}

void passDown(const Cells<Channels>& image, Cells<Way>& ways)
{
    for (int y = 1; y < image.rows() - 1; ++y) {
        for (int x = 1; x < image.columns() - 1; ++x) {
            improve(ways.at(x, y), image.at(x, y), ways.at(x, y - 1));
            improve(ways.at(x, y), image.at(x, y), ways.at(x - 1, y));
        }
    }
}

void passUp(const Cells<Channels>& image, Cells<Way>& ways)
{
    for (int y = image.rows() - 2; y > 0; --y) {
        for (int x = image.columns() - 2; x > 0; --x) {
            improve(ways.at(x, y), image.at(x, y), ways.at(x, y + 1));
            improve(ways.at(x, y), image.at(x, y), ways.at(x + 1, y));
        }
    }
}

// At the border every way begins; elsewhere none is known.
Cells<Way> waysOf(const Cells<Channels>& image)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr Channels none { infinite, infinite, infinite, infinite };
    const QSize size(image.columns(), image.rows());
    Cells<Way> ways(size);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool isInner = x > 0 && x < size.width() - 1 && y > 0 && y < size.height() - 1;
            ways.at(x, y) = { image.at(x, y), image.at(x, y), isInner ? none : Channels() };
        }
    }
    return ways;
}

} // namespace

Cells<double> vx::kernels::barrierDistance(const Cells<Lab>& colours)
{
    const Cells<Channels> image = smoothed(colours);
    Cells<Way> ways = waysOf(image);
    passDown(image, ways);
    passUp(image, ways);
    passDown(image, ways);
    Cells<double> distances(QSize(colours.columns(), colours.rows()));
    std::transform(ways.begin(), ways.end(), distances.begin(),
        [](const Way& way) { return way.barrier[0] + way.barrier[1] + way.barrier[2]; });
    stretch(distances);
    return distances;
}
