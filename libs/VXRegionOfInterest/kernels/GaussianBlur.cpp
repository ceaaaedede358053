#include "GaussianBlur.h"

#include "image/PixelWords.h"

#include <algorithm>
#include <vector>

// Only a weight of 1 takes the divisor from 0 to 1, and nothing takes it further, because normalised
// weights are at most 1.
//
// Without a weight of 1 the divisor is 0 and every quotient infinite or undefined, so all channels
// are 0. (So they are when the weights are not numbers.)
//
// With a weight of 1, that is the centre weight. The sum of the others was lost when it was added to 1, so they add
// less than 255 · 2⁻⁵¹ to a channel, which truncation removes. In the horizontal pass, the
// taps up to the centre find a red sum below 1 and read row 0, so each row becomes row 0 of the
// source. In the vertical pass the taps before the centre lie above the image, and the centre reads
// row 0 of the target, whichever row is written.
void vx::kernels::gaussianBlur(const QImage& source, const QVector<double>& weights, QImage& target)
{
    const bool repeatsFirstRow = weights.contains(1.0);
    if (!repeatsFirstRow || target.isNull()) {
        target.fill(opaqueBlack);
        return;
    }
    std::vector<QRgb> firstRow;
    firstRow.reserve(static_cast<std::size_t>(target.width()));
    for (int x = 0; x < target.width(); ++x)
        firstRow.push_back(source.pixel(x, 0) | opaqueBlack);
    for (int y = 0; y < target.height(); ++y)
        std::copy(firstRow.begin(), firstRow.end(), writableWordRow(target, y));
}
