#include "SurroundContrast.h"

#include "ContrastEstimates.h"
#include "Contrasts.h"

void vx::kernels::surroundContrast(const QImage& words, QImage& target, const RowLoops& loops)
{
    if (words.isNull())
        return;
    if (!ContrastEstimates(words, loops).writeLevels(target))
        Contrasts(words, loops).writeLevels(target);
}
