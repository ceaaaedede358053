#include "../image/ExactArithmetic.h"

#include "../CentrePrior.h"

#include "../image/GreyMap.h"

#include <cmath>

void vx::kernels::reference::centrePrior(QImage& greyMap)
{
    const double centreX = greyMap.width() * 0.5;
    const double centreY = greyMap.height() * 0.5;
    for (int y = 0; y < greyMap.height(); ++y) {
        for (int x = 0; x < greyMap.width(); ++x) {
            const double squaredDistance
                = (x - centreX) * (x - centreX) + (y - centreY) * (y - centreY);
            const double exponent = squaredDistance * -0.5 / 16900.0;
            const int level = static_cast<int>(std::exp(exponent) * 255.0);
            writableGreyRow(greyMap, y)[x] = static_cast<quint8>(level);
        }
    }
}
