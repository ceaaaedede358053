#include "ExactArithmetic.h"

#include "LumaChroma.h"

#include "PixelWords.h"

#include <algorithm>

void vx::kernels::packLumaChroma(const QImage& words, const QSize& size, QImage& target)
{
    for (int y = 0; y < size.height(); ++y) {
        const QRgb* const row = wordRow(words, y);
        std::transform(row, row + size.width(), writableWordRow(target, y), packedLumaChromaOf);
    }
}
