#include "LumaChroma.h"

#include "PixelWords.h"

void vx::kernels::packLumaChroma(
    const QImage& words, const QSize& size, QImage& target, const RowLoops& loops)
{
    for (int y = 0; y < size.height(); ++y)
        loops.packLumaChroma(wordRow(words, y), size.width(), writableWordRow(target, y));
}

QImage vx::kernels::chromaOf(const QImage& words, const RowLoops& loops)
{
    QImage chroma(words.size(), QImage::Format_ARGB32);
    for (int y = 0; y < words.height(); ++y)
        loops.packChroma(wordRow(words, y), words.width(), writableWordRow(chroma, y));
    return chroma;
}
