#include "../image/ExactArithmetic.h"

#include "../histogram/ChromaBins.h"

#include "../image/PixelWords.h"

#include <cmath>

void vx::kernels::reference::countChroma(const QImage& words, const Bins& bins)
{
    for (int y = 0; y < words.height(); ++y) {
        for (int x = 0; x < words.width(); ++x) {
            const QRgb pixel = wordRow(words, y)[x];
            const qint64 row = static_cast<qint32>((pixel >> 8 & 0xFFU) * quint32(bins.rows)) / 256;
            const qint64 column
                = static_cast<qint32>((pixel & 0xFFU) * quint32(bins.columns)) / 256;
            if (row >= 0 && row < bins.rows && column >= 0 && column < bins.columns)
                bins.values[row * bins.columns + column] += 1.0;
        }
    }
}

void vx::kernels::reference::normalizeBins(const Bins& bins)
{
    double least = 1000.0;
    double greatest = 0.0;
    for (int i = 0; i < bins.rows; ++i) {
        for (int j = 0; j < bins.columns; ++j) {
            const double value = bins.row(i)[j];
            greatest = value > greatest ? value : greatest;
            least = value < least ? value : least;
        }
    }
    for (int i = 0; i < bins.rows; ++i) {
        for (int j = 0; j < bins.columns; ++j)
            bins.row(i)[j] = (bins.row(i)[j] - least) / (greatest - least);
    }
}

double vx::kernels::reference::chiSquareDistance(const Bins& own, const Bins& other)
{
    double sum = 0.0;
    for (int i = 0; i < own.rows; ++i) {
        for (int j = 0; j < own.columns; ++j) {
            const double u = own.row(i)[j];
            const double v = i < other.rows && j < other.columns ? other.row(i)[j] : 0.0;
            if (u == 0.0 || std::isnan(u))
                continue;
            sum += ((u - v) * (u - v)) / u;
        }
    }
    return sum;
}
