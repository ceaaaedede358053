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

// Subtracts a share of the mean, down to 0, so that backgrounds with some texture become black.
void subtractShareOfMean(Cells<double>& cells)
{
    constexpr double shareOfMean = 0.3;
    const double sum = std::accumulate(cells.begin(), cells.end(), 0.0);
    const double subtracted = shareOfMean * (sum / (cells.columns() * cells.rows()));
    for (double& value : cells)
        value = std::max(value - subtracted, 0.0);
}

// The Gaussian along an axis: exp(-d² / (2 σ²)) for each cell, d the distance of its centre from that of the picture.
std::vector<double> gaussianAlong(int cells, double deviation)
{
    std::vector<double> gaussian;
    gaussian.reserve(static_cast<std::size_t>(cells));
    for (int cell = 0; cell < cells; ++cell) {
        const double distance = (cell + 0.5) / cells - 0.5;
        gaussian.push_back(std::exp(distance * distance * -0.5 / (deviation * deviation)));
    }
    return gaussian;
}

void applyCentrePrior(Cells<double>& cells)
{
    const std::vector<double> columns = gaussianAlong(cells.columns(), 0.4);
    const std::vector<double> rows = gaussianAlong(cells.rows(), 0.25);
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
    // The three distances have equal weights.
    Cells<double> salience = barrierDistance(colours);
    add(salience, borderColourDistance(colours));
    add(salience, geodesicDistance(colours, gridFor(words.size(), coarseCellsAlongLongerSide)));
    stretch(salience);
    subtractShareOfMean(salience);
    applyCentrePrior(salience);
    divideByLargest(salience);
    writeEnlarged(salience, map, loops);
}
