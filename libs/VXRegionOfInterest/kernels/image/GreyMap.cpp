#include "GreyMap.h"

#include "AlignedArray.h"
#include "ImageMemory.h"
#include "PixelLoops.h"
#include "PixelWords.h"

#include <memory>

// Every row is aligned to a cache line, as an AlignedArray is.
QImage vx::kernels::uninitializedGreyMap(const QSize& size)
{
    if (size.isEmpty())
        return QImage();
    using Bytes = AlignedArray<quint8>;
    constexpr int cacheLine = 64;
    const int bytesPerRow = (size.width() + cacheLine - 1) / cacheLine * cacheLine;
    auto bytes = std::make_unique<Bytes>(
        static_cast<std::size_t>(bytesPerRow) * static_cast<std::size_t>(size.height()));
    const auto release = [](void* memory) { delete static_cast<Bytes*>(memory); };
    QImage greyMap = held(QImage(bytes->get(), size.width(), size.height(), bytesPerRow,
                              QImage::Format_Grayscale8, release, bytes.get()),
        size, 8);
    static_cast<void>(bytes.release()); // the image releases them
    return greyMap;
}

void vx::kernels::writeOpaqueGrey(const QImage& greyMap, QImage& map, const RowLoops& loops)
{
    for (int y = 0; y < greyMap.height(); ++y)
        loops.pixels.writeOpaqueGrey(greyRow(greyMap, y), greyMap.width(), writableWordRow(map, y));
}
