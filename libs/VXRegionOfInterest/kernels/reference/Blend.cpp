#include "../blend/Blend.h"

#include "../image/PixelWords.h"

namespace {

qint32 wrapped(qint64 number) { return static_cast<qint32>(static_cast<quint32>(number)); }

} // namespace

void vx::kernels::reference::blend(
    const QList<QImage>& maps, const QList<int>& weights, QImage& target)
{
    qint32 divisor = 0;
    for (const int weight : weights)
        divisor = wrapped(qint64 { divisor } + (weight > 0 ? weight : 0));
    if (divisor == 0)
        divisor = 1;

    for (int y = 0; y < target.height(); ++y) {
        for (int x = 0; x < target.width(); ++x) {
            qint32 sum = 0;
            for (int i = 0; i < maps.size(); ++i) {
                const qint64 red = maps.at(i).valid(x, y) ? qRed(wordRow(maps.at(i), y)[x]) : 0;
                sum = wrapped(sum + red * weights.value(i));
            }
            const qint32 quotient = wrapped(qint64 { sum } / divisor);
            const int level = quotient >= 256 ? 255 : quotient < 1 ? 0 : quotient;
            writableWordRow(target, y)[x] = opaqueGrey(level);
        }
    }
}
