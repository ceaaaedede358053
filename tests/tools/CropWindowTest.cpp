#include "host/CropWindow.h"

#include "support/ImageAssert.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <QColorSpace>
#include <QPainter>

#include <cmath>

namespace {

constexpr host::AspectRatio square { 1, 1 };

QImage mapWithBrightColumns(const QSize& size, int first, int count)
{
    QImage map(size, QImage::Format_ARGB32);
    map.fill(Qt::black);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = first; x < first + count; ++x)
            map.setPixel(x, y, qRgb(255, 255, 255));
    }
    return map;
}

QImage turned(const QImage& map) { return map.transformed(QTransform(0, 1, 1, 0, 0, 0)); }

} // namespace

TEST(CropWindow, largestWindowFillsOneSideOfThePicture)
{
    EXPECT_EQ(host::largestWindow({ 1200, 800 }, square), QSize(800, 800));
    EXPECT_EQ(host::largestWindow({ 800, 1200 }, square), QSize(800, 800));
    EXPECT_EQ(host::largestWindow({ 640, 480 }, { 16, 9 }), QSize(640, 360));
    EXPECT_EQ(host::largestWindow({ 640, 480 }, { 9, 16 }), QSize(270, 480));
    EXPECT_EQ(host::largestWindow({ 640, 480 }, { 4, 3 }), QSize(640, 480));
}

TEST(CropWindow, largestWindowRoundsToTheNearestPixel)
{
    EXPECT_EQ(host::largestWindow({ 1000, 100 }, { 2, 3 }), QSize(67, 100));
    EXPECT_EQ(host::largestWindow({ 1000, 100 }, { 1, 3 }), QSize(33, 100));
}

TEST(CropWindow, largestWindowKeepsAtLeastOnePixel)
{
    EXPECT_EQ(host::largestWindow({ 5, 5 }, { 1000, 1 }), QSize(5, 1));
    EXPECT_EQ(host::largestWindow({ 5, 5 }, { 1, 1000 }), QSize(1, 5));
    EXPECT_EQ(host::largestWindow({ 1, 1 }, { 16, 9 }), QSize(1, 1));
}

TEST(CropWindow, fitsInsideTheFrameForRandomPicturesAndRatios)
{
    support::Random random(5);
    for (int round = 0; round < 20000; ++round) {
        const QSize picture(1 + random.below(30000), 1 + random.below(30000));
        const host::AspectRatio ratio { 1 + random.below(1000000000),
            1 + random.below(1000000000) };
        const QSize window = host::largestWindow(picture, ratio);
        ASSERT_TRUE(window.width() == picture.width() || window.height() == picture.height());
        ASSERT_TRUE(QRect(QPoint(), picture).contains(QRect(QPoint(), window)));
        const double error = window.width() * static_cast<double>(ratio.height)
            - window.height() * static_cast<double>(ratio.width);
        const auto onePixel = static_cast<double>(std::max(ratio.width, ratio.height));
        ASSERT_LE(std::abs(error), onePixel) << "off by more than a pixel";
    }
}

TEST(CropWindow, followsTheBrightestColumns)
{
    const QImage map = mapWithBrightColumns({ 300, 200 }, 190, 90);
    const QRect window = host::chooseWindow(map, { 1200, 800 }, square).window;
    EXPECT_EQ(window.size(), QSize(800, 800));
    // Of the map starts whose 200 columns hold all bright ones, 80 to 100, that nearest to the centre.
    EXPECT_EQ(window.topLeft(), QPoint(80 * 4, 0));
}

TEST(CropWindow, followsTheBrightestRows)
{
    const QImage map = turned(mapWithBrightColumns({ 300, 200 }, 190, 90));
    ASSERT_EQ(map.size(), QSize(200, 300));
    EXPECT_EQ(host::chooseWindow(map, { 800, 1200 }, square).window, QRect(0, 80 * 4, 800, 800));
}

TEST(CropWindow, isTheWholePictureWhenThatHasTheRatio)
{
    const QImage map = mapWithBrightColumns({ 64, 48 }, 50, 4);
    const host::Choice choice = host::chooseWindow(map, { 1200, 900 }, { 4, 3 });
    EXPECT_EQ(choice.window, QRect(0, 0, 1200, 900));
    EXPECT_EQ(choice.decider, host::Decider::WholePicture);
}

TEST(CropWindow, liesInsideThePictureForRandomSizes)
{
    support::Random random(9);
    for (int round = 0; round < 3000; ++round) {
        const QSize mapSize(1 + random.below(40), 1 + random.below(40));
        const QSize picture(1 + random.below(300), 1 + random.below(300));
        const host::AspectRatio ratio { 1 + random.below(20), 1 + random.below(20) };
        const QRect window = host::chooseWindow(
            support::noise(mapSize.width(), mapSize.height(), random.word()), picture, ratio)
                                 .window;
        ASSERT_EQ(window.size(), host::largestWindow(picture, ratio));
        ASSERT_TRUE(QRect(QPoint(), picture).contains(window));
    }
}

TEST(CropWindow, viewShowsTheWindowWithoutCopyingIt)
{
    QImage picture = support::noise(20, 10, 1);
    picture.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    picture.setDotsPerMeterX(11811);
    const QRect window(7, 2, 9, 6);
    const QImage view = host::viewOf(picture, window);
    EXPECT_TRUE(support::sameImage(picture.copy(window), view));
    constexpr std::ptrdiff_t bytesBefore = 28; // seven pixels
    EXPECT_EQ(view.constScanLine(0), picture.constScanLine(2) + bytesBefore);
    EXPECT_EQ(view.colorSpace(), picture.colorSpace());
    EXPECT_EQ(view.dotsPerMeterX(), 11811);
}

TEST(CropWindow, staysInTheCentreWhenTheMapSaysNothing)
{
    QImage flat(64, 48, QImage::Format_ARGB32);
    for (const QColor& colour : { QColor(Qt::black), QColor(Qt::white), QColor(77, 77, 77) }) {
        flat.fill(colour);
        const host::Choice choice = host::chooseWindow(flat, { 1200, 900 }, square);
        EXPECT_EQ(choice.window, QRect(150, 0, 900, 900));
        EXPECT_EQ(choice.decider, host::Decider::Centre);
    }
}

TEST(CropWindow, staysInTheCentreForATieBetweenBothSides)
{
    QImage map = mapWithBrightColumns({ 300, 100 }, 0, 20);
    QPainter(&map).drawImage(280, 0, mapWithBrightColumns({ 20, 100 }, 0, 20));
    EXPECT_EQ(host::chooseWindow(map, { 300, 100 }, square).window, QRect(100, 0, 100, 100));
}

TEST(CropWindow, reachesASubjectAtTheVeryEnd)
{
    const QImage map = mapWithBrightColumns({ 300, 100 }, 299, 1);
    const host::Choice choice = host::chooseWindow(map, { 300, 100 }, square);
    EXPECT_EQ(choice.window, QRect(200, 0, 100, 100));
    EXPECT_EQ(choice.decider, host::Decider::Salience);
}

TEST(CropWindow, mirrorsWithTheMap)
{
    support::Random random(31);
    for (int round = 0; round < 300; ++round) {
        const int width = 2 + random.below(60);
        const QImage map = mapWithBrightColumns(
            { width, 4 }, random.below(width - 1), 1); // one column, or a plateau of ties
        const QSize picture(width * 10, 40);
        const host::AspectRatio ratio { 1 + random.below(5), 1 };
        const QRect window = host::chooseWindow(map, picture, ratio).window;
        const QRect other = host::chooseWindow(map.mirrored(true, false), picture, ratio).window;
        ASSERT_LE(std::abs(other.x() - (picture.width() - window.x() - window.width())), 10)
            << width << " columns";
    }
}

TEST(CropWindow, centresOnTheFocusAsFarAsTheFrameAllows)
{
    const QImage map = mapWithBrightColumns({ 300, 100 }, 0, 10);
    const auto startFor = [&](double x) {
        const host::Choice choice
            = host::chooseWindow(map, { 300, 100 }, square, { {}, QPointF(x, 0.5) });
        EXPECT_EQ(choice.decider, host::Decider::Focus);
        return choice.window.x();
    };
    EXPECT_EQ(startFor(0.5), 100);
    EXPECT_EQ(startFor(0.6), 130);
    EXPECT_EQ(startFor(0.0), 0);
    EXPECT_EQ(startFor(1.0), 200);
}

TEST(CropWindow, holdsTheAreasToKeepWheneverItCan)
{
    support::Random random(77);
    for (int round = 0; round < 3000; ++round) {
        const QSize picture(20 + random.below(500), 20 + random.below(500));
        const host::AspectRatio ratio { 1 + random.below(9), 1 + random.below(9) };
        const QSize size = host::largestWindow(picture, ratio);
        const QRect area = QRect(random.below(picture.width()), random.below(picture.height()),
                               1 + random.below(size.width()), 1 + random.below(size.height()))
            & QRect(QPoint(), picture);
        const host::Choice choice = host::chooseWindow(
            support::noise(40, 30, random.word()), picture, ratio, { { area }, std::nullopt });
        ASSERT_EQ(choice.window.size(), size);
        ASSERT_TRUE(choice.window.contains(area));
        ASSERT_TRUE(QRect(QPoint(), picture).contains(choice.window));
    }
}

TEST(CropWindow, holdsAsManyAreasAsAnyWindowCan)
{
    const QImage map = mapWithBrightColumns({ 300, 100 }, 0, 10);
    const QVector<QRect> areas { { 5, 0, 10, 10 }, { 200, 0, 10, 10 }, { 250, 0, 10, 10 } };
    const host::Choice choice = host::chooseWindow(map, { 300, 100 }, square, { areas, {} });
    EXPECT_EQ(choice.decider, host::Decider::Keep);
    EXPECT_TRUE(choice.window.contains(areas.at(1)));
    EXPECT_TRUE(choice.window.contains(areas.at(2)));
}

TEST(CropWindow, liesWithinAnAreaThatIsLongerThanItself)
{
    const QImage map = mapWithBrightColumns({ 300, 100 }, 0, 10);
    const QRect area(120, 0, 150, 100);
    EXPECT_TRUE(
        area.contains(host::chooseWindow(map, { 300, 100 }, square, { { area }, {} }).window));
}

TEST(CropWindow, tellsTheShareOfTheSalienceThatItHolds)
{
    const QImage map = mapWithBrightColumns({ 300, 100 }, 100, 100);
    EXPECT_DOUBLE_EQ(host::salienceWithin(map, { 600, 200 }, { 200, 0, 200, 200 }), 1.0);
    EXPECT_DOUBLE_EQ(host::salienceWithin(map, { 600, 200 }, { 100, 0, 200, 200 }), 0.5);
    EXPECT_DOUBLE_EQ(host::salienceWithin(map, { 600, 200 }, { 0, 50, 600, 100 }), 0.5);
    EXPECT_DOUBLE_EQ(host::salienceWithin(map, { 600, 200 }, { 400, 0, 200, 200 }), 0.0);
}
