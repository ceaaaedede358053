#include "SalienceMap.h"

#include "host/picture/ImageMemory.h"

#include <algorithm>

namespace host {

QImage stretched(const QImage& map)
{
    QImage levels = notNull(map.convertToFormat(QImage::Format_Grayscale8));
    int least = 255;
    int most = 0;
    for (int y = 0; y < levels.height(); ++y) {
        const uchar* const row = levels.constScanLine(y);
        const auto [rowLeast, rowMost] = std::minmax_element(row, row + levels.width());
        least = std::min<int>(least, *rowLeast);
        most = std::max<int>(most, *rowMost);
    }
    const int range = std::max(most - least, 1);
    for (int y = 0; y < levels.height(); ++y) {
        uchar* const row = levels.scanLine(y);
        std::transform(row, row + levels.width(), row,
            [=](uchar level) { return static_cast<uchar>((level - least) * 255 / range); });
    }
    levels.setText(QStringLiteral("Comment"),
        QStringLiteral("Levels %1 to %2, stretched to 0 to 255").arg(least).arg(most));
    return levels;
}

QImage brightened(const QImage& map)
{
    QImage levels = notNull(map.convertToFormat(QImage::Format_Grayscale8));
    int brightest = 1;
    for (int y = 0; y < levels.height(); ++y) {
        const uchar* const row = levels.constScanLine(y);
        brightest = std::max<int>(brightest, *std::max_element(row, row + levels.width()));
    }
    for (int y = 0; y < levels.height(); ++y) {
        uchar* const row = levels.scanLine(y);
        std::transform(row, row + levels.width(), row,
            [=](uchar level) { return static_cast<uchar>(level * 255 / brightest); });
    }
    return levels;
}

} // namespace host
