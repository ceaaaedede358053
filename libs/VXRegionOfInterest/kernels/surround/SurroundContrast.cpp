#include "SurroundContrast.h"

#include "ContrastEstimates.h"
#include "Contrasts.h"

void vx::kernels::surroundContrast(const QImage& words, QImage& levels, const RowLoops& loops)
{
    if (words.isNull())
        return;
    const bool isCertain = ContrastEstimates::canEstimate(words.size(), loops)
        && ContrastEstimates(words, loops).writeLevels(levels);
    if (!isCertain)
        Contrasts(words, loops).writeLevels(levels);
}
