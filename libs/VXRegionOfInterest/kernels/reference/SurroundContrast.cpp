#include "../image/ExactArithmetic.h"

#include "../surround/SurroundContrast.h"

#include "../image/GreyMap.h"
#include "../image/LumaChroma.h"
#include "../image/PixelWords.h"
#include "../image/Planes.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

// One channel of the image: its smoothed values and its integral image.
struct Channel {
    Plane smoothed;
    IntegralImage integral;
};

Channel channelOf(const QImage& words, double LumaChroma::*member)
{
    Plane plane;
    for (int y = 0; y < words.height(); ++y) {
        for (int x = 0; x < words.width(); ++x)
            plane.append(lumaChromaOf(wordRow(words, y)[x]).*member);
    }
    Channel channel { plane, {} };
    smoothSeparably(plane, words.width(), words.height(), { 1, 2, 1 }, channel.smoothed);
    for (int y = 0; y < words.height(); ++y)
        channel.integral.append(plane.mid(y * words.width(), words.width()));
    integrate(plane, words.width(), words.height(), channel.integral);
    return channel;
}

double squaredDistance(const Channel& channel, const QRect& surround, int index)
{
    const double sum = rectangleSum(
        channel.integral, surround.left(), surround.top(), surround.right(), surround.bottom());
    const double area = surround.width() * surround.height();
    const double distance = sum / area - channel.smoothed.at(index);
    return distance * distance;
}

QRect surroundOf(int x, int y, const QSize& size)
{
    const int reachX = std::min(x, size.width() - x);
    const int reachY = std::min(y, size.height() - y);
    return QRect(QPoint(std::max(x - reachX, 0), std::max(y - reachY, 0)),
        QPoint(std::min(x + reachX, size.width() - 1), std::min(y + reachY, size.height() - 1)));
}

} // namespace

void vx::kernels::reference::surroundContrast(const QImage& words, QImage& greyMap)
{
    const Channel luma = channelOf(words, &LumaChroma::luma);
    const Channel red = channelOf(words, &LumaChroma::redDifference);
    const Channel blue = channelOf(words, &LumaChroma::blueDifference);

    Plane contrasts;
    double greatest = 0;
    double smallest = 1073741824;
    for (int y = 0; y < words.height(); ++y) {
        for (int x = 0; x < words.width(); ++x) {
            const QRect surround = surroundOf(x, y, words.size());
            const int index = y * words.width() + x;
            const double contrast = squaredDistance(luma, surround, index)
                + squaredDistance(red, surround, index) + squaredDistance(blue, surround, index);
            contrasts.append(contrast);
            greatest = std::max(greatest, contrast);
            smallest = std::min(smallest, contrast);
        }
    }

    const int range = static_cast<int>(greatest - smallest);
    for (int y = 0; y < words.height(); ++y) {
        for (int x = 0; x < words.width(); ++x) {
            const int above = static_cast<int>(contrasts.at(y * words.width() + x) - smallest);
            const int level = range == 0 ? 0 : above * 255 / range;
            writableGreyRow(greyMap, y)[x] = static_cast<quint8>(std::clamp(level, 0, 255));
        }
    }
}
