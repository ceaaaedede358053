#include "figures/Figures.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

// The mean difference of the channels of two pictures of the same size.
double meanDifference(const QImage& a, const QImage& b)
{
    long long sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q))
                + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return static_cast<double>(sum) / (3.0 * a.width() * a.height());
}

} // namespace

// The pictures are JPEGs, so they may differ by the loss of the compression, and by no more.
TEST(Pictures, showWhatTheLibraryDoesToday)
{
    for (const figures::Figure& figure : figures::drawFigures()) {
        const QImage shown(QStringLiteral(DOCS_IMAGES "/%1.jpg").arg(figure.name));
        ASSERT_EQ(shown.size(), figure.image.size()) << figure.name.toStdString();
        EXPECT_LT(meanDifference(shown, figure.image), 3) << figure.name.toStdString();
    }
}
