#include "LumaChroma.h"

#include "PixelLoops.h"
#include "PixelWords.h"

void vx::kernels::packLumaChroma(
    const QImage& words, const QSize& size, QImage& target, const RowLoops& loops)
{
    for (int y = 0; y < size.height(); ++y)
        loops.pixels.packLumaChroma(wordRow(words, y), size.width(), writableWordRow(target, y));
}
