#include "SurroundContrast.h"

#include "ContrastEstimates.h"
#include "Contrasts.h"

void vx::kernels::surroundContrast(const QImage& words, BytePlane& levels, const RowLoops& loops)
{
    if (words.isNull())
        return;
    if (!ContrastEstimates(words, loops).writeLevels(levels))
        Contrasts(words, loops).writeLevels(levels);
}
