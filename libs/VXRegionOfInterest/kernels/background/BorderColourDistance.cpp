#include "../image/ExactArithmetic.h"

#include "BackgroundDistances.h"

#include <QRect>

#include <array>
#include <cmath>

namespace {

using namespace vx::kernels;

// A symmetric matrix of the channels L, a and b.
struct Symmetric {
    double ll;
    double la;
    double lb;
    double aa;
    double ab;
    double bb;

    // The adjugate divided by the determinant. \pre the determinant is not 0
    Symmetric inverse() const
    {
        const double cofactorLL = aa * bb - ab * ab;
        const double cofactorLA = lb * ab - la * bb;
        const double cofactorLB = la * ab - lb * aa;
        const double determinant = ll * cofactorLL + la * cofactorLA + lb * cofactorLB;
        return { cofactorLL / determinant, cofactorLA / determinant, cofactorLB / determinant,
            (ll * bb - lb * lb) / determinant, (la * lb - ll * ab) / determinant,
            (ll * aa - la * la) / determinant };
    }
};

Lab difference(const Lab& one, const Lab& other)
{
    return { one.lightness - other.lightness, one.a - other.a, one.b - other.b };
}

Lab meanOf(const Cells<Lab>& colours, const QRect& band)
{
    Lab sum {};
    for (int y = band.top(); y <= band.bottom(); ++y) {
        for (int x = band.left(); x <= band.right(); ++x) {
            sum.lightness += colours.at(x, y).lightness;
            sum.a += colours.at(x, y).a;
            sum.b += colours.at(x, y).b;
        }
    }
    const double count = band.width() * band.height();
    return { sum.lightness / count, sum.a / count, sum.b / count };
}

// The covariance, with a variance added to every channel: a band of one colour has an inverse, and noise counts little.
Symmetric covarianceOf(const Cells<Lab>& colours, const QRect& band, const Lab& mean)
{
    constexpr double addedVariance = 16;
    Symmetric sum {};
    for (int y = band.top(); y <= band.bottom(); ++y) {
        for (int x = band.left(); x <= band.right(); ++x) {
            const Lab d = difference(colours.at(x, y), mean);
            sum.ll += d.lightness * d.lightness;
            sum.la += d.lightness * d.a;
            sum.lb += d.lightness * d.b;
            sum.aa += d.a * d.a;
            sum.ab += d.a * d.b;
            sum.bb += d.b * d.b;
        }
    }
    const double count = band.width() * band.height();
    return { sum.ll / count + addedVariance, sum.la / count, sum.lb / count,
        sum.aa / count + addedVariance, sum.ab / count, sum.bb / count + addedVariance };
}

// The Mahalanobis distance of each cell to the colours of a band, as a share of the largest.
Cells<double> distancesTo(const Cells<Lab>& colours, const QRect& band)
{
    const Lab mean = meanOf(colours, band);
    const Symmetric inverse = covarianceOf(colours, band, mean).inverse();
    Cells<double> distances(QSize(colours.columns(), colours.rows()));
    std::transform(colours.begin(), colours.end(), distances.begin(), [&](const Lab& colour) {
        const Lab d = difference(colour, mean);
        const double squares = inverse.ll * d.lightness * d.lightness + inverse.aa * d.a * d.a
            + inverse.bb * d.b * d.b;
        const double products = inverse.la * d.lightness * d.a + inverse.lb * d.lightness * d.b
            + inverse.ab * d.a * d.b;
        return std::sqrt(std::max(squares + 2 * products, 0.0));
    });
    const double largest = *std::max_element(distances.begin(), distances.end());
    for (double& distance : distances)
        distance = largest > 0 ? distance / largest : 0;
    return distances;
}

int tenthOf(int cells) { return std::max((cells + 5) / 10, 1); }

} // namespace

Cells<double> vx::kernels::borderColourDistance(const Cells<Lab>& colours)
{
    const int columns = colours.columns();
    const int rows = colours.rows();
    const int bandWidth = tenthOf(columns);
    const int bandHeight = tenthOf(rows);
    const Cells<double> left = distancesTo(colours, QRect(0, 0, bandWidth, rows));
    const Cells<double> right
        = distancesTo(colours, QRect(columns - bandWidth, 0, bandWidth, rows));
    const Cells<double> top = distancesTo(colours, QRect(0, 0, columns, bandHeight));
    const Cells<double> bottom
        = distancesTo(colours, QRect(0, rows - bandHeight, columns, bandHeight));

    Cells<double> distances(QSize(columns, rows));
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            const auto [nearerSide, fartherSide] = std::minmax(left.at(x, y), right.at(x, y));
            const auto [nearerEdge, fartherEdge] = std::minmax(top.at(x, y), bottom.at(x, y));
            const double smallest = std::min(nearerSide, nearerEdge);
            const double second
                = std::min(std::max(nearerSide, nearerEdge), std::min(fartherSide, fartherEdge));
            distances.at(x, y) = smallest + second;
        }
    }
    stretch(distances);
    return distances;
}
