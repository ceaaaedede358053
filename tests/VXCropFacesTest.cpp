#include <VXCrop/VXCrop.h>

#include "support/PlainWindow.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <vector>

namespace {

const QSize square(1, 1);

VXCropConstraints withFaces(const QVector<QRect>& faces)
{
    VXCropConstraints constraints;
    constraints.faces = faces;
    return constraints;
}

VXCropWindow windowOf(
    const QImage& map, const VXCropConstraints& constraints, const QSize& ratio = square)
{
    return VXCrop::fromMap(map, map.size()).window(ratio, constraints);
}

// A map whose two bright columns are in a square window that begins at 240 only: each weighs more than two faces.
QImage mapThatHoldsTheWindow()
{
    QImage map = support::mapWithBrightColumns({ 640, 160 }, 240, 1);
    QPainter(&map).fillRect(399, 0, 1, 160, Qt::white);
    return map;
}

// What a face adds to each column of a map as large as its picture, or to each row of one that is taller than wide, by
// the definition.
std::vector<qint64> plainFace(const QRect& face, const QSize& map, qint64 held)
{
    const bool isAcross = map.width() > map.height();
    std::vector<qint64> sums(static_cast<std::size_t>(std::max(map.width(), map.height())), 0);
    for (int x = 0; x < map.width(); ++x) {
        for (int y = 0; y < map.height(); ++y) {
            const double across = (x + 0.5 - face.x()) / face.width() - 0.5;
            const double down = (y + 0.5 - face.y()) / (1.5 * face.height()) - 0.5;
            if (std::hypot(across, down) <= 0.5)
                ++sums[static_cast<std::size_t>(isAcross ? x : y)];
        }
    }
    const qint64 pixels = std::accumulate(sums.begin(), sums.end(), qint64 { 0 });
    for (qint64& sum : sums)
        sum = held * sum / (5 * pixels);
    return sums;
}

// A map whose columns, or rows if it is taller than wide, have random levels.
struct RandomMap {
    RandomMap(support::Random& random, const QSize& size)
        : image(size, QImage::Format_RGB32)
    {
        const bool isAcross = size.width() > size.height();
        const int breadth = std::min(size.width(), size.height());
        QPainter painter(&image);
        for (int i = 0; i < std::max(size.width(), size.height()); ++i) {
            const int level = random.below(80);
            painter.fillRect(isAcross ? QRect(i, 0, 1, breadth) : QRect(0, i, breadth, 1),
                QColor(level, level, level));
            sums.push_back(qint64 { breadth } * level);
        }
    }

    QImage image;
    std::vector<qint64> sums;
};

QVector<QRect> randomFacesWithin(const QSize& size, support::Random& random)
{
    QVector<QRect> faces;
    const int count = 1 + random.below(3);
    for (int i = 0; i < count; ++i) {
        const QSize face(11 + 2 * random.below(12), 11 + 2 * random.below(12));
        faces.append(QRect(QPoint(random.below(size.width() - face.width()),
                               random.below(size.height() - face.height())),
            face));
    }
    return faces;
}

bool isCutBy(const QRect& window, const QRect& face)
{
    return window.intersects(face) && !window.contains(face);
}

} // namespace

TEST(VXCropFaces, weighAFifthOfTheMapEachInAnEllipseThatReachesBelowThem)
{
    support::Random random(31);
    for (int round = 0; round < 200; ++round) {
        const bool isAcross = round % 2 == 0;
        const QSize size = isAcross ? QSize(640, 160) : QSize(120, 480);
        const int length = std::min(size.width(), size.height());
        const RandomMap map(random, size);
        const qint64 held = std::accumulate(map.sums.begin(), map.sums.end(), qint64 { 0 });
        const QVector<QRect> faces = randomFacesWithin(size, random);
        std::vector<qint64> sums = map.sums;
        for (const QRect& face : faces) {
            const std::vector<qint64> added = plainFace(face, size, held);
            std::transform(sums.begin(), sums.end(), added.begin(), sums.begin(), std::plus<>());
        }
        const int start = support::plainStart(sums, length);
        const QRect expected(isAcross ? start : 0, isAcross ? 0 : start, length, length);
        // One that cuts no face shows whether the sums are right.
        if (std::none_of(faces.begin(), faces.end(),
                [&](const QRect& face) { return isCutBy(expected, face); })) {
            EXPECT_EQ(windowOf(map.image, withFaces(faces)).window, expected) << "round " << round;
        }
    }
}

TEST(VXCropFaces, drawTheWindowAndSaySo)
{
    const QImage map = support::mapWithBrightColumns({ 640, 160 }, 100, 8);
    EXPECT_EQ(windowOf(map, {}).reason, VXCropReason::Salience);
    // Five faces weigh as much as all of the map, six more.
    const QVector<QRect> six(6, QRect(500, 60, 20, 20));
    const VXCropWindow window = windowOf(map, withFaces(six));
    EXPECT_TRUE(window.window.contains(six.first()));
    EXPECT_EQ(window.reason, VXCropReason::Faces);
    EXPECT_EQ(window.salience, 0) << "of the map itself";
    EXPECT_LE(windowOf(map, withFaces(six.mid(0, 4))).window.x(), 100);
}

TEST(VXCropFaces, sayNothingWhereTheyChangeNothing)
{
    const QImage map = support::mapWithBrightColumns({ 640, 160 }, 100, 40);
    const VXCropWindow without = windowOf(map, {});
    const VXCropWindow with = windowOf(
        map, withFaces({ QRect(without.window.center() - QPoint(10, 10), QSize(20, 20)) }));
    EXPECT_EQ(with.window, without.window);
    EXPECT_EQ(with.reason, VXCropReason::Salience);
}

TEST(VXCropFaces, areShownWholeByTheLeastShiftFromThirtyPercentOn)
{
    ASSERT_EQ(windowOf(mapThatHoldsTheWindow(), {}).window.x(), 240);
    const auto startFor = [](int first) {
        return windowOf(mapThatHoldsTheWindow(), withFaces({ QRect(first, 100, 20, 20) }))
            .window.x();
    };
    const int right = 240 + 160;
    EXPECT_EQ(startFor(right - 20), 240) << "it is whole";
    EXPECT_EQ(startFor(right - 19), 241);
    EXPECT_EQ(startFor(right - 6), 254) << "thirty percent";
    EXPECT_EQ(startFor(right - 5), 240) << "a quarter";
    EXPECT_EQ(startFor(240 - 14), 226) << "thirty percent on the left";
    EXPECT_EQ(startFor(240 - 15), 240);
}

TEST(VXCropFaces, theLargestIsShownWholeWhereNotAllCanBe)
{
    const auto startFor = [](const QVector<QRect>& faces) {
        return windowOf(mapThatHoldsTheWindow(), withFaces(faces)).window.x();
    };
    const QRect atTheLeft(235, 60, 30, 30);
    const QRect atTheRight(390, 60, 20, 20);
    EXPECT_EQ(startFor({ atTheLeft }), 235);
    EXPECT_EQ(startFor({ atTheRight }), 250);
    EXPECT_EQ(startFor({ atTheRight, atTheLeft }), 235);
    const QRect wholeAtTheEnd(380, 60, 20, 20);
    const QRect smaller(236, 60, 10, 10);
    EXPECT_EQ(startFor({ smaller }), 236);
    EXPECT_EQ(startFor({ smaller, wholeAtTheEnd }), 240) << "it would cut the larger one";
}

TEST(VXCropFaces, stayCutWhereTheyAreLongerThanTheWindow)
{
    const QImage map = support::mapWithBrightColumns({ 640, 160 }, 240, 160);
    EXPECT_EQ(windowOf(map, withFaces({ QRect(200, 0, 170, 150) })).reason, VXCropReason::Centre);
}

TEST(VXCropFaces, comeAfterTheFocusAndAreasToKeepAndToAvoid)
{
    const QImage map = support::mapWithBrightColumns({ 640, 160 }, 240, 160);
    VXCropConstraints constraints = withFaces(QVector<QRect>(9, QRect(600, 60, 20, 20)));
    EXPECT_TRUE(windowOf(map, constraints).window.contains(constraints.faces.first()));
    constraints.avoid = { QRect(590, 0, 40, 160) };
    EXPECT_FALSE(windowOf(map, constraints).window.intersects(constraints.avoid.first()));
    constraints.keep = { QRect(10, 10, 20, 20) };
    EXPECT_TRUE(windowOf(map, constraints).window.contains(constraints.keep.first()));
    constraints.focus = QPointF(0.5, 0.5);
    EXPECT_EQ(windowOf(map, constraints).window.x(), 240);
}

TEST(VXCropFaces, moveWindowsUpAndDownAsWell)
{
    const QImage map = mapThatHoldsTheWindow().transformed(QTransform(0, 1, 1, 0, 0, 0));
    EXPECT_EQ(windowOf(map, withFaces({ QRect(100, 390, 20, 20) })).window.y(), 250);
}

TEST(VXCropFaces, decideAloneWhereTheMapHoldsNothing)
{
    const QImage map = support::mapWithBrightColumns({ 640, 160 }, 0, 0);
    const VXCropWindow window = windowOf(map, withFaces({ QRect(500, 60, 20, 20) }));
    EXPECT_TRUE(window.window.contains(QRect(500, 60, 20, 20)));
    EXPECT_EQ(window.reason, VXCropReason::Faces);
}

TEST(VXCropFaces, areIgnoredOutsideThePicture)
{
    const QImage map = support::mapWithBrightColumns({ 640, 160 }, 240, 160);
    const int far = std::numeric_limits<int>::max();
    for (const QRect& face : { QRect(), QRect(700, 0, 20, 20), QRect(-50, 0, 50, 20),
             QRect(QPoint(-far, -far), QPoint(-1, far)), QRect(0, 160, 640, 20) })
        EXPECT_EQ(windowOf(map, withFaces({ face })).window.x(), 240);
}

TEST(VXCropFaces, ofFewerPixelsThanTheMapStillDraw)
{
    const QImage map = support::mapWithBrightColumns({ 64, 16 }, 0, 0);
    const VXCrop crop = VXCrop::fromMap(map, { 64000, 16000 });
    const QRect face(50003, 8000, 1, 1);
    EXPECT_TRUE(crop.window(square, withFaces({ face })).window.contains(face));
}

// The window lies within the picture and holds every face that the rule promises, whatever the faces are.
TEST(VXCropFaces, arePromisedNothingThatCannotBe)
{
    support::Random random(32);
    for (int round = 0; round < 300; ++round) {
        const QSize size(1 + random.below(900), 1 + random.below(700));
        QImage map(40, 30, QImage::Format_Grayscale8);
        map.fill(QColor::fromHsv(0, 0, random.below(256)));
        QVector<QRect> faces;
        for (int i = 0; i < random.below(6); ++i)
            faces.append(QRect(random.below(1000) - 50, random.below(800) - 50, random.below(300),
                random.below(300)));
        const VXCrop crop = VXCrop::fromMap(map, size);
        for (const VXCropWindow& window :
            crop.windows(QSize(1 + random.below(20), 1 + random.below(20)), 3, withFaces(faces)))
            EXPECT_TRUE(QRect(QPoint(), size).contains(window.window));
    }
}
