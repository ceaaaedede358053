#include "../image/ExactArithmetic.h"

#include "../CentrePrior.h"

#include "../image/Levels.h"

#include <cmath>

void vx::kernels::reference::centrePrior(QImage& levels)
{
    const double centreX = levels.width() * 0.5;
    const double centreY = levels.height() * 0.5;
    for (int y = 0; y < levels.height(); ++y) {
        for (int x = 0; x < levels.width(); ++x) {
            const double squaredDistance
                = (x - centreX) * (x - centreX) + (y - centreY) * (y - centreY);
            const double exponent = squaredDistance * -0.5 / 16900.0;
            const int level = static_cast<int>(std::exp(exponent) * 255.0);
            writableLevelRow(levels, y)[x] = static_cast<quint8>(level);
        }
    }
}
