#include "SurroundContrast.h"

#include "Contrasts.h"
#include "PixelWords.h"

void vx::kernels::surroundContrast(const QImage& words, QImage& target, const RowLoops& loops)
{
    if (words.isNull())
        return;
    const Contrasts contrasts(words, loops);
    const auto [least, greatest] = contrasts.range();
    const int range = static_cast<int>(greatest - least);
    if (range == 0) {
        target.fill(opaqueBlack);
        return;
    }
    // At most 255, because no truncated difference exceeds the truncated range.
    for (int y = 0; y < target.height(); ++y)
        loops.writeLevels(
            contrasts.row(y), target.width(), least, range, writableWordRow(target, y));
}
