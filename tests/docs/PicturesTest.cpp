#include "host/CropWindow.h"
#include "host/Overlay.h"
#include "host/SalienceMap.h"
#include "scenes/SampleScenes.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

// The mean difference of the channels of two pictures of one size.
double meanDifference(const QImage& a, const QImage& b)
{
    long long sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q))
                + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return static_cast<double>(sum) / (3.0 * a.width() * a.height());
}

} // namespace

// The README's picture is a JPEG, so it may differ by what compression costs, and by no more.
TEST(Pictures, overlayOfTheReadmeShowsWhatTheLibraryDoesToday)
{
    const QImage scene = scenes::drawBalloon();
    const QImage map = host::salienceMapOf(
        host::workingImageOf(scene), host::SalienceSettings::preset(QStringLiteral("photo")));
    const QRect window = host::chooseWindow(map, scene.size(), { 1, 1 }).window;
    const QImage expected = host::drawOverlay(scene, map, window);
    const QImage shown(QStringLiteral(DOCS_IMAGES "/overlay.jpg"));
    ASSERT_EQ(shown.size(), expected.size());
    EXPECT_LT(meanDifference(shown, expected), 3);
}
