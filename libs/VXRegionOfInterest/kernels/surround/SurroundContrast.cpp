#include "SurroundContrast.h"

#include "ExactContrasts.h"
#include "FloatingPointFilter.h"

void vx::kernels::surroundContrast(const QImage& words, QImage& greyMap, const RowLoops& loops)
{
    if (words.isNull())
        return;
    const bool isCertain = FloatingPointFilter::appliesTo(words.size(), loops)
        && FloatingPointFilter(words, loops).stretchIfCertain(greyMap);
    if (!isCertain)
        ExactContrasts(words, loops).stretch(greyMap);
}
