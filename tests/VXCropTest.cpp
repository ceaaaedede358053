#include <VXCrop/VXCrop.h>

#include "support/ImageAssert.h"
#include "support/PlainWindow.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <VXRegionOfInterest/VXBackgroundROI.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

const QSize square(1, 1);

// A map whose column sums are given, for pictures of 640 × 480: each column is as even as can be.
QImage mapOfColumns(const std::vector<int>& sums)
{
    QImage map(static_cast<int>(sums.size()), 480, QImage::Format_RGB32);
    for (int x = 0; x < map.width(); ++x) {
        const int sum = sums[static_cast<std::size_t>(x)];
        for (int y = 0; y < 480; ++y) {
            const int level = sum / 480 + (y < sum % 480 ? 1 : 0);
            map.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return map;
}

QImage turned(const QImage& map) { return map.transformed(QTransform(0, 1, 1, 0, 0, 0)); }

int startOf(const QImage& map, const QSize& ratio, const VXCropConstraints& constraints = {})
{
    return VXCrop::fromMap(map, map.size()).window(ratio, constraints).window.x();
}

VXCropConstraints keeping(const QVector<QRect>& areas) { return { areas, {}, std::nullopt }; }

VXCropConstraints avoiding(const QVector<QRect>& areas) { return { {}, areas, std::nullopt }; }

// A disc on a plain ground, both of random colours that differ.
struct Disc {
    Disc(support::Random& random, const QSize& size)
        : picture(size, QImage::Format_RGB32)
    {
        const int shorter = std::min(size.width(), size.height());
        radius = shorter * (8 + random.below(9)) / 100;
        centre = QPoint(radius + random.below(size.width() - 2 * radius),
            radius + random.below(size.height() - 2 * radius));
        const QColor ground
            = QColor::fromHsv(random.below(360), 60 + random.below(120), 120 + random.below(100));
        picture.fill(ground);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromHsv(
            (ground.hue() + 90 + random.below(180)) % 360, 220, 60 + random.below(180)));
        painter.drawEllipse(centre, radius, radius);
    }

    QRect bounds() const
    {
        return { centre - QPoint(radius, radius), QSize(2 * radius, 2 * radius) };
    }

    QImage picture;
    QPoint centre;
    int radius = 0;
};

} // namespace

TEST(VXCrop, largestWindowFillsOneSideOfThePicture)
{
    EXPECT_EQ(VXCrop::largestWindow({ 1200, 800 }, square), QSize(800, 800));
    EXPECT_EQ(VXCrop::largestWindow({ 800, 1200 }, square), QSize(800, 800));
    EXPECT_EQ(VXCrop::largestWindow({ 640, 480 }, { 16, 9 }), QSize(640, 360));
    EXPECT_EQ(VXCrop::largestWindow({ 640, 480 }, { 9, 16 }), QSize(270, 480));
    EXPECT_EQ(VXCrop::largestWindow({ 640, 480 }, { 4, 3 }), QSize(640, 480));
}

TEST(VXCrop, largestWindowRoundsToTheNearestPixelAndKeepsAtLeastOne)
{
    EXPECT_EQ(VXCrop::largestWindow({ 1000, 100 }, { 2, 3 }), QSize(67, 100));
    EXPECT_EQ(VXCrop::largestWindow({ 1000, 100 }, { 1, 3 }), QSize(33, 100));
    EXPECT_EQ(VXCrop::largestWindow({ 5, 5 }, { 1000, 1 }), QSize(5, 1));
    EXPECT_EQ(VXCrop::largestWindow({ 5, 5 }, { 1, 1000 }), QSize(1, 5));
    EXPECT_EQ(VXCrop::largestWindow({ INT_MAX, 1 }, { INT_MAX, INT_MAX }), QSize(1, 1));
}

TEST(VXCrop, largestWindowFitsForRandomPicturesAndRatios)
{
    support::Random random(5);
    for (int round = 0; round < 20000; ++round) {
        const QSize picture(1 + random.below(30000), 1 + random.below(30000));
        const QSize ratio(1 + random.below(1000000000), 1 + random.below(1000000000));
        const QSize window = VXCrop::largestWindow(picture, ratio);
        ASSERT_TRUE(window.width() == picture.width() || window.height() == picture.height());
        ASSERT_TRUE(QRect(QPoint(), picture).contains(QRect(QPoint(), window)));
        const double error = window.width() * static_cast<double>(ratio.height())
            - window.height() * static_cast<double>(ratio.width());
        const auto onePixel = static_cast<double>(std::max(ratio.width(), ratio.height()));
        ASSERT_LE(std::abs(error), onePixel) << "off by more than a pixel";
    }
}

TEST(VXCrop, nothingIsCroppedOfNoPictureOrToNoShape)
{
    EXPECT_TRUE(VXCrop().window(square).window.isNull());
    EXPECT_TRUE(VXCrop().windows(square, 3).isEmpty());
    EXPECT_TRUE(VXCrop().map().isNull());
    EXPECT_TRUE(VXCrop().map({ QRect(0, 0, 10, 10) }).isNull());
    EXPECT_TRUE(VXCrop(QImage()).window(square).window.isNull());
    EXPECT_TRUE(VXCrop::fromMap(QImage(), { 5, 5 }).window(square).window.isNull());
    EXPECT_TRUE(VXCrop::fromMap(support::noise(4, 4, 1), {}).map().isNull());
    EXPECT_TRUE(VXCrop::workingImage(QImage()).isNull());
    EXPECT_TRUE(VXCrop::workingSize(QSize(0, 7)).isEmpty());
    const VXCrop crop(support::noise(40, 30, 1));
    for (const QSize& ratio : { QSize(), QSize(0, 1), QSize(1, 0), QSize(-1, -1) }) {
        EXPECT_TRUE(crop.window(ratio).window.isNull());
        EXPECT_TRUE(VXCrop::largestWindow({ 40, 30 }, ratio).isEmpty());
    }
    EXPECT_TRUE(crop.windows(square, 0).isEmpty());
    EXPECT_TRUE(crop.windows(square, INT_MIN).isEmpty());
}

TEST(VXCrop, nothingIsCroppedOfPicturesTooWideForPixelWords)
{
    QImage bits(67108863, 1, QImage::Format_Mono);
    bits.fill(1);
    EXPECT_TRUE(VXCrop(bits).window(square).window.isNull());
    EXPECT_TRUE(VXCrop::workingImage(bits).isNull());
    EXPECT_TRUE(VXCrop::fromMap(bits, { 5, 5 }).window(square).window.isNull());
    EXPECT_TRUE(VXCrop::fromWorkingImage(bits, { 5, 5 }, VXCropSettings::library())
                    .window(square)
                    .window.isNull());
    EXPECT_EQ(VXCrop(bits.copy(0, 0, 67108862, 1)).window(square).window.size(), QSize(1, 1));
}

TEST(VXCrop, isTheWholePictureWhenThatHasTheRatio)
{
    const VXCropWindow whole
        = VXCrop::fromMap(support::mapWithBrightColumns({ 64, 48 }, 50, 4), { 1200, 900 })
              .window({ 4, 3 });
    EXPECT_EQ(whole.window, QRect(0, 0, 1200, 900));
    EXPECT_EQ(whole.reason, VXCropReason::WholePicture);
    EXPECT_EQ(whole.salience, 1);
}

// A subject from column 500 to 539 weighs 1 whole where it is a fifth of 160 columns, 32, from either end.
TEST(VXCrop, givesTheSubjectRoom)
{
    EXPECT_EQ(
        startOf(support::mapWithBrightColumns({ 640, 160 }, 500, 40), square), 540 + 32 - 160);
    EXPECT_EQ(startOf(support::mapWithBrightColumns({ 640, 160 }, 100, 40), square), 100 - 32);
}

TEST(VXCrop, followsTheBrightestRowsAsItDoesColumns)
{
    const QImage map = turned(support::mapWithBrightColumns({ 640, 160 }, 500, 40));
    const QImage large = map.scaled(120, 480);
    EXPECT_EQ(VXCrop::fromMap(large, { 120, 480 }).window(square).window,
        QRect(0, (540 + 32 - 160) * 480 / 640, 120, 120));
}

TEST(VXCrop, weighsWhatItHoldsAsDefinedForRandomMaps)
{
    support::Random random(12);
    for (int round = 0; round < 300; ++round) {
        std::vector<int> columns(640);
        const int spread = 1 + random.below(600);
        for (int& sum : columns)
            sum = random.below(spread) * (random.below(4) == 0 ? 200 : 1);
        const int length = 1 + random.below(639);
        ASSERT_EQ(startOf(mapOfColumns(columns), QSize(length, 480)),
            support::plainStart({ columns.begin(), columns.end() }, length))
            << "round " << round << ", " << length << " columns";
    }
}

// Two columns have no ends that weigh less: the centre holds 100000 units.
TEST(VXCrop, leavesTheCentreForMoreThanAThousandthOnly)
{
    std::vector<int> columns(640, 0);
    columns[319] = columns[320] = 50000;
    columns[10] = columns[11] = 50050;
    EXPECT_EQ(startOf(mapOfColumns(columns), QSize(2, 480)), 319);
    columns[11] = 50051;
    EXPECT_EQ(startOf(mapOfColumns(columns), QSize(2, 480)), 10);
}

TEST(VXCrop, staysInTheCentreWhenTheMapSaysNothing)
{
    for (const QColor& colour : { QColor(Qt::black), QColor(Qt::white), QColor(77, 77, 77) }) {
        QImage flat(64, 48, QImage::Format_RGB32);
        flat.fill(colour);
        const VXCropWindow window = VXCrop::fromMap(flat, { 1200, 900 }).window(square);
        EXPECT_EQ(window.window, QRect(150, 0, 900, 900));
        EXPECT_EQ(window.reason, VXCropReason::Centre);
    }
}

TEST(VXCrop, staysInTheCentreForATieBetweenBothSides)
{
    QImage map = support::mapWithBrightColumns({ 640, 160 }, 0, 20);
    QPainter(&map).fillRect(620, 0, 20, 160, Qt::white);
    EXPECT_EQ(startOf(map, square), 240);
}

TEST(VXCrop, reachesASubjectAtTheVeryEnd)
{
    const VXCropWindow window
        = VXCrop::fromMap(support::mapWithBrightColumns({ 640, 160 }, 639, 1), { 640, 160 })
              .window(square);
    EXPECT_EQ(window.window, QRect(480, 0, 160, 160));
    EXPECT_EQ(window.reason, VXCropReason::Salience);
}

// The map's grid is coarser than the picture's, and no multiple of it.
TEST(VXCrop, reachesBothEndsOfLargePictures)
{
    for (const QSize& picture : { QSize(1200, 800), QSize(6001, 3999), QSize(977, 331) }) {
        QImage map(320, 4, QImage::Format_RGB32);
        map.fill(Qt::black);
        QPainter(&map).fillRect(319, 0, 1, 4, Qt::white);
        const QRect last = VXCrop::fromMap(map, picture).window(square).window;
        EXPECT_EQ(last.right(), picture.width() - 1);
        const QRect first
            = VXCrop::fromMap(map.mirrored(true, false), picture).window(square).window;
        EXPECT_EQ(first.left(), 0);
    }
}

TEST(VXCrop, liesInsideThePictureForRandomSizes)
{
    support::Random random(9);
    for (int round = 0; round < 1500; ++round) {
        const QImage map
            = support::noise(1 + random.below(40), 1 + random.below(40), random.word());
        const QSize picture(1 + random.below(900), 1 + random.below(900));
        const QSize ratio(1 + random.below(20), 1 + random.below(20));
        for (const VXCropWindow& window : VXCrop::fromMap(map, picture).windows(ratio, 3)) {
            ASSERT_EQ(window.window.size(), VXCrop::largestWindow(picture, ratio));
            ASSERT_TRUE(QRect(QPoint(), picture).contains(window.window));
            ASSERT_GE(window.focus.x(), window.window.left() / double(picture.width()) - 0.01);
        }
    }
}

TEST(VXCrop, centresOnTheFocusAsFarAsTheFrameAllows)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 640, 160 }, 0, 10), { 300, 75 });
    const auto startFor = [&](double x) {
        const VXCropWindow window = crop.window(square, { {}, {}, QPointF(x, 0.5) });
        EXPECT_EQ(window.reason, VXCropReason::Focus);
        return window.window.x();
    };
    EXPECT_EQ(startFor(0.6), 143) << "180 - 37.5";
    EXPECT_EQ(startFor(0.0), 0);
    EXPECT_EQ(startFor(-7.0), 0);
    EXPECT_EQ(startFor(std::numeric_limits<double>::infinity()), 225);
    EXPECT_EQ(startFor(std::numeric_limits<double>::quiet_NaN()), 113) << "the centre";
}

TEST(VXCrop, holdsTheAreasToKeepWheneverItCan)
{
    support::Random random(77);
    for (int round = 0; round < 600; ++round) {
        const QSize picture(20 + random.below(500), 20 + random.below(500));
        const QSize ratio(1 + random.below(9), 1 + random.below(9));
        const QSize size = VXCrop::largestWindow(picture, ratio);
        const QRect area = QRect(random.below(picture.width()), random.below(picture.height()),
                               1 + random.below(size.width()), 1 + random.below(size.height()))
            & QRect(QPoint(), picture);
        const QRect window = VXCrop::fromMap(support::noise(40, 30, random.word()), picture)
                                 .window(ratio, keeping({ area }))
                                 .window;
        ASSERT_EQ(window.size(), size);
        ASSERT_TRUE(window.contains(area));
        ASSERT_TRUE(QRect(QPoint(), picture).contains(window));
    }
}

TEST(VXCrop, holdsAsManyAreasAsAnyWindowCan)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 300, 100 }, 0, 10), { 300, 100 });
    const QVector<QRect> areas { { 5, 0, 10, 10 }, { 200, 0, 10, 10 }, { 250, 0, 10, 10 } };
    const VXCropWindow window = crop.window(square, keeping(areas));
    EXPECT_EQ(window.reason, VXCropReason::Keep);
    EXPECT_TRUE(window.window.contains(areas.at(1)));
    EXPECT_TRUE(window.window.contains(areas.at(2)));
}

TEST(VXCrop, liesWithinAnAreaThatIsLongerThanItself)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 300, 100 }, 0, 10), { 300, 100 });
    const QRect area(120, 0, 150, 100);
    EXPECT_TRUE(area.contains(crop.window(square, keeping({ area })).window));
}

// Without salience, the areas themselves give the window something to hold, with room around.
TEST(VXCrop, givesAreasToKeepRoom)
{
    QImage black(640, 160, QImage::Format_RGB32);
    black.fill(Qt::black);
    const QRect area(480, 40, 30, 60);
    const QRect window
        = VXCrop::fromMap(black, black.size()).window(square, keeping({ area })).window;
    EXPECT_LE(window.left() + 32, area.left());
    EXPECT_GE(window.right() - 32, area.right());
}

TEST(VXCrop, ignoresAreasOutsideThePicture)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 300, 100 }, 0, 40), { 300, 100 });
    const QRect window = crop.window(square).window;
    for (const QRect& outside :
        { QRect(), QRect(300, 0, 9, 9), QRect(0, -9, 9, 9), QRect(INT_MAX - 5, 3, 5, 5) }) {
        EXPECT_EQ(crop.window(square, keeping({ outside })).window, window);
        EXPECT_EQ(crop.window(square, avoiding({ outside })).window, window);
    }
}

// Against every place: none has fewer pixels of the areas, and of those with as few, none holds more.
TEST(VXCrop, hasTheFewestPixelsOfAreasToAvoid)
{
    support::Random random(78);
    for (int round = 0; round < 400; ++round) {
        const QSize picture(20 + random.below(200), 20 + random.below(200));
        const QSize ratio(1 + random.below(9), 1 + random.below(9));
        QVector<QRect> areas;
        for (int count = 1 + random.below(3); count > 0; --count)
            areas.append(QRect(random.below(picture.width()), random.below(picture.height()),
                             1 + random.below(90), 1 + random.below(90))
                & QRect(QPoint(), picture));
        const auto pixelsIn = [&](const QRect& window) {
            qint64 pixels = 0;
            for (const QRect& area : areas) {
                const QRect part = area & window;
                pixels += part.isEmpty() ? 0 : qint64 { part.width() } * part.height();
            }
            return pixels;
        };
        const QRect window = VXCrop::fromMap(support::noise(40, 30, random.word()), picture)
                                 .window(ratio, avoiding(areas))
                                 .window;
        for (int x = 0; x + window.width() <= picture.width(); ++x) {
            for (int y = 0; y + window.height() <= picture.height(); ++y)
                ASSERT_LE(pixelsIn(window), pixelsIn(QRect(QPoint(x, y), window.size()))) << round;
        }
    }
}

TEST(VXCrop, goesWhereTheSalienceIsAmongPlacesWithoutAreasToAvoid)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 640, 160 }, 520, 20), { 640, 160 });
    const VXCropWindow window = crop.window(square, avoiding({ { 300, 10, 20, 20 } }));
    EXPECT_EQ(window.window.x(), crop.window(square).window.x());
    EXPECT_EQ(window.reason, VXCropReason::Avoid);
    const VXCrop atTheEnd
        = VXCrop::fromMap(support::mapWithBrightColumns({ 640, 160 }, 600, 20), { 640, 160 });
    EXPECT_EQ(atTheEnd.window(square).window.right(), 639);
    EXPECT_EQ(atTheEnd.window(square, avoiding({ { 630, 0, 10, 10 } })).window.right(), 629);
}

// Their sides are longer than an int can tell, or negative.
TEST(VXCrop, takesAreasThatReachFarBeyondThePicture)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 300, 100 }, 0, 10), { 300, 100 });
    const QRect tall(QPoint(250, -2000000000), QPoint(260, 2000000000));
    EXPECT_EQ(crop.window(square, keeping({ tall })).reason, VXCropReason::Keep);
    EXPECT_EQ(crop.window(square, keeping({ QRect(260, 50, -20, -20) })).window,
        crop.window(square).window);
    const QSize largest(INT_MAX, INT_MAX);
    const VXCrop huge
        = VXCrop::fromMap(support::mapWithBrightColumns({ 300, 100 }, 0, 10), largest);
    const QVector<QRect> everything(9, QRect(QPoint(), largest));
    EXPECT_EQ(huge.window(QSize(1, 2), avoiding(everything)).window.height(), INT_MAX);
}

TEST(VXCrop, analysesWorkingImagesThatAreTooLargeAtTheWorkingSize)
{
    const QImage picture = support::variedImages(1900, 700, 5)[2];
    EXPECT_TRUE(support::sameImage(
        VXCrop(picture).map(), VXCrop::fromWorkingImage(picture, picture.size()).map()));
}

TEST(VXCrop, theFocusOfAThinWindowIsWithinIt)
{
    const VXCrop crop = VXCrop::fromMap(support::noise(38, 480, 3), { 38, 3815 });
    for (const VXCropWindow& window : crop.windows(QSize(38, 4), 200)) {
        EXPECT_GE(window.focus.y() * 3815, window.window.top() - 1e-6);
        EXPECT_LE(window.focus.y() * 3815, window.window.bottom() + 1 + 1e-6);
    }
}

TEST(VXCrop, areasToKeepComeBeforeThoseToAvoid)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 300, 100 }, 0, 10), { 300, 100 });
    const QRect both(200, 0, 20, 20);
    const VXCropWindow window = crop.window(square, { { both }, { both }, std::nullopt });
    EXPECT_EQ(window.reason, VXCropReason::Keep);
    EXPECT_TRUE(window.window.contains(both));
}

TEST(VXCrop, tellsTheShareOfTheSalienceThatItHolds)
{
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 640, 160 }, 400, 160), { 1280, 320 });
    const VXCropWindow window = crop.window(square);
    EXPECT_EQ(window.window, QRect(800, 0, 320, 320));
    EXPECT_EQ(window.salience, 1.0);
    EXPECT_EQ(window.centreSalience, 0.0);
    const VXCropWindow half = crop.window(square, { {}, {}, QPointF(400 / 640.0, 0) });
    EXPECT_EQ(half.window.x(), 640);
    EXPECT_EQ(half.salience, 0.5);
}

TEST(VXCrop, tellsTheCentreOfTheSalienceThatItHolds)
{
    QImage map = support::mapWithBrightColumns({ 640, 160 }, 0, 0);
    QPainter(&map).fillRect(480, 40, 20, 10, Qt::white);
    QPainter(&map).fillRect(0, 0, 5, 5, Qt::white); // outside the window
    const VXCropWindow window = VXCrop::fromMap(map, { 1280, 320 }).window(square);
    EXPECT_DOUBLE_EQ(window.focus.x(), 490 / 640.0);
    EXPECT_DOUBLE_EQ(window.focus.y(), 45 / 160.0);
}

TEST(VXCrop, theFocusOfAWindowWithoutSalienceIsItsMiddle)
{
    const VXCropWindow window
        = VXCrop::fromMap(support::mapWithBrightColumns({ 640, 160 }, 0, 0), { 640, 160 })
              .window(square, { {}, {}, QPointF(1, 0) });
    EXPECT_DOUBLE_EQ(window.focus.x(), 560 / 640.0);
    EXPECT_DOUBLE_EQ(window.focus.y(), 0.5);
}

TEST(VXCrop, alternativesAreTheBestThatOverlapByLessThanHalf)
{
    support::Random random(14);
    for (int round = 0; round < 60; ++round) {
        std::vector<int> columns(640);
        for (int& sum : columns)
            sum = random.below(1000) * (random.below(9) == 0 ? 100 : 1);
        const int length = 2 + random.below(300);
        const QImage map = mapOfColumns(columns);
        const VXCrop crop = VXCrop::fromMap(map, map.size());
        const QSize ratio(length, 480);
        const QVector<VXCropWindow> windows = crop.windows(ratio, 4);
        const std::vector<qint64> sums(columns.begin(), columns.end());
        ASSERT_GE(windows.size(), 1);
        ASSERT_EQ(windows.first().window, crop.window(ratio).window);
        for (int i = 1; i < windows.size(); ++i) {
            const auto mayBe = [&](int start) {
                return std::all_of(
                    windows.begin(), windows.begin() + i, [&](const VXCropWindow& other) {
                        const int common = length - std::abs(start - other.window.x());
                        return 2 * common < length;
                    });
            };
            ASSERT_TRUE(mayBe(windows.at(i).window.x()));
            const qint64 held = support::plainHeld(sums, length, windows.at(i).window.x());
            for (int start = 0; start + length <= 640; ++start)
                ASSERT_TRUE(!mayBe(start) || support::plainHeld(sums, length, start) <= held)
                    << round;
        }
    }
}

TEST(VXCrop, thereAreOnlySoManyAlternativesAsFit)
{
    const VXCrop crop = VXCrop::fromMap(support::noise(64, 16, 1), { 640, 160 });
    EXPECT_LE(crop.windows(square, INT_MAX).size(), 640 / 80);
    EXPECT_EQ(crop.windows(QSize(4, 1), 5).size(), 1) << "the whole picture";
    EXPECT_EQ(crop.windows(square, 5, { {}, {}, QPointF(0.2, 0) }).size(), 1) << "the focus";
}

TEST(VXCrop, takesTheGreyLevelsOfAMapFromElsewhereOrTheOpacityOfAMask)
{
    QImage mask(640, 160, QImage::Format_ARGB32);
    mask.fill(Qt::transparent);
    QPainter(&mask).fillRect(500, 0, 40, 160, qRgba(0, 0, 0, 255)); // black, and opaque
    const int start = startOf(support::mapWithBrightColumns({ 640, 160 }, 500, 40), square);
    EXPECT_EQ(startOf(mask, square), start);
    for (const QImage::Format format : { QImage::Format_Mono, QImage::Format_Grayscale8,
             QImage::Format_RGB888, QImage::Format_Indexed8, QImage::Format_Grayscale16 })
        EXPECT_EQ(
            startOf(support::mapWithBrightColumns({ 640, 160 }, 500, 40).convertToFormat(format),
                square),
            start);
    QImage alpha = mask.convertToFormat(QImage::Format_Alpha8);
    EXPECT_EQ(startOf(alpha, square), start);
}

TEST(VXCrop, laysAMapOfAnySizeOverTheWholePicture)
{
    // Four of sixteen columns, 250 to 312.5 and so on: the window is 250 wide.
    const VXCrop crop
        = VXCrop::fromMap(support::mapWithBrightColumns({ 16, 4 }, 12, 3), { 1000, 250 });
    EXPECT_TRUE(crop.window(square).window.contains(QRect(750, 0, 187, 250)));
    EXPECT_EQ(crop.map().size(), QSize(640, 160));
    const VXCrop reduced
        = VXCrop::fromMap(support::mapWithBrightColumns({ 6400, 1600 }, 4800, 1200), { 1000, 250 });
    EXPECT_TRUE(reduced.window(square).window.contains(QRect(750, 0, 187, 250)));
}

TEST(VXCrop, photoIsTheBackgroundMethodAloneAndTheDefault)
{
    const QImage picture = support::variedImages(640, 480, 3)[3];
    const QImage map = VXCrop(picture).map();
    EXPECT_TRUE(support::sameImage(VXBackgroundROI().evaluate(VXCrop::workingImage(picture)), map));
    EXPECT_TRUE(support::sameImage(map, VXCrop(picture, VXCropSettings::photo()).map()));
}

TEST(VXCrop, libraryIsWhatTheMixerMakesOfTheWorkingImage)
{
    const QImage picture = support::variedImages(320, 200, 3)[2];
    const QImage working = VXCrop::workingImage(picture);
    const VXCrop crop(picture, VXCropSettings::library());
    VXSalienzMixer mixer { QSize() };
    EXPECT_TRUE(support::sameImage(mixer.analyze(working), crop.map()));
    mixer.injectVeryImportantAreas({ QRect(20, 40, 60, 80) }, working.size());
    EXPECT_TRUE(support::sameImage(
        mixer.analyze(working), crop.map({ QRect(10, 20, 30, 40), QRect(900, 1, 2, 3) })));
}

TEST(VXCrop, blendsTheBackgroundMethodWithOthers)
{
    const QImage picture = support::variedImages(640, 480, 3)[2];
    VXCropSettings settings = VXCropSettings::library();
    settings.background = 7;
    const VXCrop crop(picture, settings);
    const QVector<VXCropMap> maps = crop.methodMaps();
    ASSERT_EQ(maps.size(), 5);
    const std::vector<std::string> names { "sobel", "gauss", "histogram", "achanta", "background" };
    QList<QImage> images;
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(maps.at(i).method.toStdString(), names.at(static_cast<std::size_t>(i)));
        images.append(maps.at(i).map);
    }
    EXPECT_TRUE(
        support::sameImage(VXSalienzMixer(QSize()).mix(images, { 20, 2, -10, 10, 7 }), crop.map()));
    EXPECT_EQ(crop.methodMaps({ QRect(1, 2, 3, 4) }).last().method, QStringLiteral("areas"));
}

TEST(VXCrop, theMapIsBlackWhereEveryMethodIsOff)
{
    VXCropSettings settings;
    settings.background = 0;
    const VXCrop crop(support::noise(64, 48, 1), settings);
    EXPECT_EQ(support::reds(crop.map()), std::vector<int>(std::size_t { 640 } * 480, 0));
    EXPECT_TRUE(crop.methodMaps().isEmpty());
    EXPECT_EQ(crop.window(square).reason, VXCropReason::Centre);
}

TEST(VXCrop, worksAtTheLargestSizeThatFitsInto640By480)
{
    EXPECT_EQ(VXCrop::workingSize({ 6000, 4000 }), QSize(640, 426));
    EXPECT_EQ(VXCrop::workingSize({ 4000, 6000 }), QSize(320, 480));
    EXPECT_EQ(VXCrop::workingSize({ 4, 3 }), QSize(640, 480));
    EXPECT_EQ(VXCrop::workingSize({ 1, 100000 }), QSize(1, 480));
    EXPECT_EQ(VXCrop(support::noise(60, 40, 1)).map().size(), QSize(640, 426));
}

TEST(VXCrop, aWorkingPixelIsTheMeanOfThoseThatItStandsFor)
{
    const QImage picture = support::noise(1280, 960, 4).convertToFormat(QImage::Format_RGB32);
    const QImage working = VXCrop::workingImage(picture);
    ASSERT_EQ(working.size(), QSize(640, 480));
    for (int y = 0; y < 480; ++y) {
        for (int x = 0; x < 640; ++x) {
            const auto mean = [&](int (*channel)(QRgb)) {
                const int sum = channel(picture.pixel(2 * x, 2 * y))
                    + channel(picture.pixel(2 * x + 1, 2 * y))
                    + channel(picture.pixel(2 * x, 2 * y + 1))
                    + channel(picture.pixel(2 * x + 1, 2 * y + 1));
                return (sum + 2) / 4;
            };
            ASSERT_EQ(working.pixel(x, y), qRgb(mean(qRed), mean(qGreen), mean(qBlue)));
        }
    }
}

// Seven columns and rows for each: columns 1 to 4 of them count, and row 3.
TEST(VXCrop, ofManyPixelsAFewInTheMiddleStandForAll)
{
    const QImage picture
        = support::noise(7 * 640, 7 * 480, 4).convertToFormat(QImage::Format_RGB32);
    const QImage working = VXCrop::workingImage(picture);
    for (const QPoint& place : { QPoint(0, 0), QPoint(639, 479), QPoint(77, 300) }) {
        int reds = 0;
        for (int i = 1; i <= 4; ++i)
            reds += qRed(picture.pixel(7 * place.x() + i, 7 * place.y() + 3));
        EXPECT_EQ(qRed(working.pixel(place)), (reds + 2) / 4);
    }
}

// By three times three they are at most nine, whose means are rounded like quotients.
TEST(VXCrop, meansOfWorkingPixelsAreRoundedToTheNearest)
{
    for (const QSize& size : { QSize(641, 481), QSize(800, 600), QSize(1279, 959) }) {
        const QImage picture
            = support::noise(size.width(), size.height(), 4).convertToFormat(QImage::Format_RGB32);
        const QImage working = VXCrop::workingImage(picture);
        for (int y = 0; y < working.height(); y += 7) {
            for (int x = 0; x < working.width(); ++x) {
                const int left = x * size.width() / working.width();
                const int right = (x + 1) * size.width() / working.width();
                const int top = y * size.height() / working.height();
                const int bottom = (y + 1) * size.height() / working.height();
                int sum = 0;
                for (int v = top; v < bottom; ++v) {
                    for (int u = left; u < right; ++u)
                        sum += qGreen(picture.pixel(u, v));
                }
                const int count = (right - left) * (bottom - top);
                ASSERT_EQ(qGreen(working.pixel(x, y)), (2 * sum + count) / (2 * count));
            }
        }
    }
}

TEST(VXCrop, whatIsTransparentCountsAsMidGrey)
{
    QImage picture(640, 480, QImage::Format_ARGB32);
    picture.fill(qRgba(255, 0, 0, 0));
    EXPECT_EQ(VXCrop::workingImage(picture).pixel(9, 9), qRgb(128, 128, 128));
    picture.fill(qRgba(255, 0, 40, 127));
    const QRgb half = VXCrop::workingImage(picture).pixel(9, 9);
    EXPECT_NEAR(qRed(half), 127 + 64, 1);
    EXPECT_NEAR(qGreen(half), 64, 1);
    EXPECT_NEAR(qBlue(half), 20 + 64, 1);
    EXPECT_EQ(qAlpha(half), 255);
}

TEST(VXCrop, readsEveryFormatAsQtConvertsIt)
{
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        QImage picture
            = support::noise(640, 480, 5).convertToFormat(static_cast<QImage::Format>(format));
        if (picture.pixelFormat().colorModel() == QPixelFormat::Indexed && picture.depth() == 1)
            picture.setColorTable({ qRgb(1, 200, 3), qRgb(77, 3, 250) });
        const QImage premultiplied = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        EXPECT_TRUE(
            support::sameImage(VXCrop::workingImage(premultiplied), VXCrop::workingImage(picture)))
            << "format " << format;
    }
}

TEST(VXCrop, readsRowsThatAreFurtherApartThanTheyAreWide)
{
    const QImage image = support::noise(700, 500, 5);
    const support::PaddedImage padded(image);
    EXPECT_TRUE(
        support::sameImage(VXCrop::workingImage(image), VXCrop::workingImage(padded.image())));
}

TEST(VXCrop, isTheSameFromThePictureAndFromItsWorkingImage)
{
    const QImage picture = support::variedImages(1900, 700, 5)[2];
    const VXCrop whole(picture);
    const VXCrop fromWorking
        = VXCrop::fromWorkingImage(VXCrop::workingImage(picture), picture.size());
    EXPECT_EQ(whole.pictureSize(), QSize(1900, 700));
    EXPECT_EQ(fromWorking.pictureSize(), QSize(1900, 700));
    EXPECT_TRUE(support::sameImage(whole.map(), fromWorking.map()));
    EXPECT_EQ(whole.window(square).window, fromWorking.window(square).window);
}

// Discs of 8 to 16 % of the shorter side anywhere in pictures of four shapes, and windows that are
// longer than they are: every window has the middle of its disc, and hardly any cuts it.
TEST(VXCrop, losesNoDisc)
{
    support::Random random(2026);
    const std::vector<QSize> sizes { { 640, 480 }, { 480, 640 }, { 600, 600 }, { 800, 450 } };
    int windows = 0;
    int cut = 0;
    for (int round = 0; round < 200; ++round) {
        const Disc disc(random, sizes[static_cast<std::size_t>(round) % sizes.size()]);
        const VXCrop crop(disc.picture);
        for (const QSize& ratio : { QSize(1, 1), QSize(9, 16), QSize(3, 1) }) {
            const QRect window = crop.window(ratio).window;
            ASSERT_GE(std::min(window.width(), window.height()), 2 * disc.radius);
            EXPECT_TRUE(window.contains(disc.centre)) << round;
            cut += window.contains(disc.bounds()) ? 0 : 1;
            ++windows;
        }
    }
    EXPECT_EQ(windows, 600);
    EXPECT_LE(cut, 6);
}
