#include "../ExactArithmetic.h"

#include "../CentrePrior.h"

#include "../PixelWords.h"

#include <cmath>

void vx::kernels::reference::centrePrior(QImage& target)
{
    const double centreX = target.width() * 0.5;
    const double centreY = target.height() * 0.5;
    for (int y = 0; y < target.height(); ++y) {
        for (int x = 0; x < target.width(); ++x) {
            const double squaredDistance
                = (x - centreX) * (x - centreX) + (y - centreY) * (y - centreY);
            const double exponent = squaredDistance * -0.5 / 16900.0;
            const int level = static_cast<int>(std::exp(exponent) * 255.0);
            writableWordRow(target, y)[x] = opaqueGrey(level);
        }
    }
}
