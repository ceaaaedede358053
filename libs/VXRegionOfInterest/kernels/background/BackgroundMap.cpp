#include "../image/ExactArithmetic.h"

#include "BackgroundMap.h"

#include "BackgroundDistances.h"

#include <cmath>
#include <functional>
#include <numeric>

namespace {

using namespace vx::kernels;

constexpr int cellsAlongLongerSide = 80;
constexpr int coarseCellsAlongLongerSide = 20;

void add(Cells<double>& sums, const Cells<double>& cells)
{
    std::transform(sums.begin(), sums.end(), cells.begin(), sums.begin(), std::plus<>());
}

// Leaves what exceeds a share of the mean: backgrounds with some texture become black.
void dropWhatIsUsual(Cells<double>& cells)
{
    constexpr double shareOfMean = 0.3;
    const double sum = std::accumulate(cells.begin(), cells.end(), 0.0);
    const double usual = shareOfMean * (sum / (cells.columns() * cells.rows()));
    for (double& value : cells)
        value = std::max(value - usual, 0.0);
}

// exp(-d² / (2 σ²)) for each cell along an axis, d the distance of its middle to that of all.
std::vector<double> bumpAlong(int cells, double deviation)
{
    std::vector<double> bump;
    bump.reserve(static_cast<std::size_t>(cells));
    for (int cell = 0; cell < cells; ++cell) {
        const double distance = (cell + 0.5) / cells - 0.5;
        bump.push_back(std::exp(distance * distance * -0.5 / (deviation * deviation)));
    }
    return bump;
}

void preferCentre(Cells<double>& cells)
{
    const std::vector<double> columns = bumpAlong(cells.columns(), 0.4);
    const std::vector<double> rows = bumpAlong(cells.rows(), 0.25);
    for (int y = 0; y < cells.rows(); ++y) {
        for (int x = 0; x < cells.columns(); ++x)
            cells.at(x, y)
                *= columns[static_cast<std::size_t>(x)] * rows[static_cast<std::size_t>(y)];
    }
}

void divideByLargest(Cells<double>& cells)
{
    const double largest = *std::max_element(cells.begin(), cells.end());
    for (double& value : cells)
        value = largest > 0 ? value / largest : 0;
}

} // namespace

void vx::kernels::writeBackgroundMap(const QImage& words, QImage& map, const RowLoops& loops)
{
    if (words.isNull())
        return;
    const Cells<Lab> colours
        = cellColours(words, gridFor(words.size(), cellsAlongLongerSide), loops);
    Cells<double> salience = barrierDistance(colours);
    add(salience, borderColourDistance(colours));
    add(salience, geodesicDistance(colours, gridFor(words.size(), coarseCellsAlongLongerSide)));
    stretch(salience);
    dropWhatIsUsual(salience);
    preferCentre(salience);
    divideByLargest(salience);
    writeEnlarged(salience, map, loops);
}
