#include "Levels.h"

#include "AlignedArray.h"
#include "ImageMemory.h"
#include "PixelLoops.h"
#include "PixelWords.h"

#include <memory>

// Rows begin where cache lines do: loops that store whole vectors are slower when those lie across two.
QImage vx::kernels::uninitializedLevels(const QSize& size)
{
    if (size.isEmpty())
        return QImage();
    using Bytes = AlignedArray<quint8>;
    constexpr int cacheLine = 64;
    const int bytesPerRow = (size.width() + cacheLine - 1) / cacheLine * cacheLine;
    auto bytes = std::make_unique<Bytes>(
        static_cast<std::size_t>(bytesPerRow) * static_cast<std::size_t>(size.height()));
    const auto release = [](void* memory) { delete static_cast<Bytes*>(memory); };
    QImage levels = held(QImage(bytes->get(), size.width(), size.height(), bytesPerRow,
                             QImage::Format_Grayscale8, release, bytes.get()),
        size, 8);
    static_cast<void>(bytes.release()); // the image releases them
    return levels;
}

void vx::kernels::writeGrey(const QImage& levels, QImage& map, const RowLoops& loops)
{
    for (int y = 0; y < levels.height(); ++y)
        loops.pixels.writeGrey(levelRow(levels, y), levels.width(), writableWordRow(map, y));
}
