#include <VXRegionOfInterest/VXDisjointSet.h>

#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <set>
#include <stdexcept>
#include <type_traits>

namespace {

using Points = std::vector<QPoint>;
using Extents = QMap<int, QVector<int>>;

// The labels of a set's cells, row by row; releases the grid that it asks for.
std::vector<int> labelsOf(VXDisjointSet& set, int rows, int columns)
{
    int** const grid = set.getSubSets();
    std::vector<int> labels;
    for (int row = 0; row < rows; ++row) {
        labels.insert(labels.end(), grid[row], grid[row] + columns);
        delete[] grid[row];
    }
    delete[] grid;
    return labels;
}

// A set in which every cell knows its root, without trees.
class PlainSet {
public:
    explicit PlainSet(int cells)
        : ranks(static_cast<std::size_t>(cells))
    {
        for (int i = 0; i < cells; ++i)
            roots.push_back(i);
    }

    void join(int a, int b)
    {
        const bool staysRoot = rank(a) > rank(b);
        if (rank(a) == rank(b))
            ++rank(b);
        for (int& root : roots) {
            if (root == (staysRoot ? b : a))
                root = staysRoot ? a : b;
        }
    }

    int size(int root) const
    {
        return static_cast<int>(std::count(roots.begin(), roots.end(), root));
    }

    int& rank(int i) { return ranks[static_cast<std::size_t>(i)]; }

    std::vector<int> roots;

private:
    std::vector<int> ranks;
};

// A grid of random size in which random roots were joined, and the same without trees.
struct RandomSets {
    explicit RandomSets(support::Random& random)
        : rows(1 + random.below(12))
        , columns(1 + random.below(12))
        , set(rows, columns)
        , plain(rows * columns)
    {
        for (int i = random.below(2 * rows * columns); i > 0; --i) {
            const int a = set.find(random.below(rows * columns));
            const int b = set.find(random.below(rows * columns));
            if (a == b)
                continue;
            set.join(a, b);
            plain.join(a, b);
        }
    }

    int rows;
    int columns;
    VXDisjointSet set;
    PlainSet plain;
};

// The hull by walking around it, from the lexically smallest point and back.
Points hullByWalking(Points points)
{
    std::sort(points.begin(), points.end(), lexicallySmaller);
    points.erase(std::unique(points.begin(), points.end()), points.end());
    const auto turn = [](QPoint o, QPoint a, QPoint b) {
        return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
    };
    Points hull { points.front() };
    do {
        QPoint next = points.front() == hull.back() ? points.back() : points.front();
        for (const QPoint& candidate : points) {
            const int side = turn(hull.back(), next, candidate);
            const QPoint reach = next - hull.back();
            const QPoint other = candidate - hull.back();
            const bool isFarther
                = QPoint::dotProduct(other, other) > QPoint::dotProduct(reach, reach);
            if (candidate != hull.back() && (side < 0 || (side == 0 && isFarther)))
                next = candidate;
        }
        hull.push_back(next);
    } while (hull.back() != hull.front());
    return hull;
}

// The shoelace formula; every sum is stored, and so rounded to single precision.
std::pair<float, float> centroidByHand(const Points& polygon)
{
    volatile float x = 0;
    volatile float y = 0;
    double area = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const QPoint a = polygon[i];
        const QPoint b = polygon[(i + 1) % polygon.size()];
        const double c = a.x() * b.y() - b.x() * a.y();
        area += c;
        x = static_cast<float>(double { x } + (a.x() + b.x()) * c);
        y = static_cast<float>(double { y } + (a.y() + b.y()) * c);
    }
    area = area * 0.5 * 6;
    return { static_cast<float>(double { x } / area), static_cast<float>(double { y } / area) };
}

void expectSame(const std::pair<float, float>& expected, const std::pair<float, float>& actual)
{
    const auto isSame = [](float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(isSame(expected.first, actual.first)) << expected.first << ", " << actual.first;
    EXPECT_TRUE(isSame(expected.second, actual.second)) << expected.second << ", " << actual.second;
}

} // namespace

TEST(VXDisjointSet, everyCellBeginsAsItsOwnSegment)
{
    VXDisjointSet set(3, 4);
    EXPECT_EQ(set.getCount(), 12);
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(set.find(i), i);
        EXPECT_EQ(set.size(i), 1);
        EXPECT_EQ(set.value(i), 0.0);
    }
}

TEST(VXDisjointSet, gridsWithoutCellsAreEmpty)
{
    for (const auto& [rows, columns] : { std::pair(0, 5), std::pair(3, 0), std::pair(-2, 5),
             std::pair(4, -3), std::pair(INT_MIN, INT_MIN) }) {
        VXDisjointSet set(rows, columns);
        EXPECT_EQ(set.find(0), -1) << "there are no elements";
        EXPECT_TRUE(set.getSegmentSizes().isEmpty());
        EXPECT_TRUE(set.getSegmentInformations().empty());
        EXPECT_TRUE(labelsOf(set, std::max(rows, 0), 0).empty());
    }
}

TEST(VXDisjointSet, countIsRowsTimesColumnsIn32Bits)
{
    EXPECT_EQ(VXDisjointSet(0, 5).getCount(), 0);
    EXPECT_EQ(VXDisjointSet(-2, 4).getCount(), -8);
    EXPECT_EQ(VXDisjointSet(4, -2).getCount(), -8);
    EXPECT_EQ(VXDisjointSet(-2, -3).getCount(), 6);
    EXPECT_EQ(VXDisjointSet(INT_MIN, INT_MIN).getCount(), 0);
    EXPECT_EQ(VXDisjointSet(INT_MAX, INT_MAX).getCount(), 1);
    EXPECT_EQ(VXDisjointSet(1 << 16, (1 << 16) + 1).getCount(), 1 << 16);
}

// Elements, but no cells that they stand for.
TEST(VXDisjointSet, gridsOfNegativeSidesOrTooManyCellsHaveElementsOnly)
{
    for (const auto& [rows, columns] : { std::pair(-2, -3), std::pair(1 << 16, (1 << 16) + 1) }) {
        VXDisjointSet set(rows, columns);
        set.join(0, 5);
        EXPECT_EQ(set.find(0), 5);
        EXPECT_EQ(set.size(5), 2);
        EXPECT_TRUE(set.getSegmentSizes().isEmpty());
        EXPECT_TRUE(set.getSegmentInformations().empty());
        EXPECT_TRUE(labelsOf(set, 0, 0).empty());
    }
}

TEST(VXDisjointSet, joiningFreshRootsPutsTheFirstUnderTheSecond)
{
    VXDisjointSet set(1, 4);
    set.join(0, 1);
    EXPECT_EQ(set.find(0), 1);
    EXPECT_EQ(set.size(1), 2);
    EXPECT_EQ(set.value(1), 1.0 / 2); // rank 1, size 2
    EXPECT_EQ(set.getCount(), 3);

    set.join(2, 1); // a fresh root under one of higher rank, whose rank stays
    EXPECT_EQ(set.find(2), 1);
    EXPECT_EQ(set.size(1), 3);
    EXPECT_EQ(set.value(1), 1.0 / 3);

    set.join(1, 3); // the higher rank stays root, wherever it stands
    EXPECT_EQ(set.find(3), 1);
    EXPECT_EQ(set.size(1), 4);
    EXPECT_EQ(set.value(1), 1.0 / 4);
    EXPECT_EQ(set.getCount(), 1);
}

TEST(VXDisjointSet, compressesOnlyTheElementThatIsAskedFor)
{
    VXDisjointSet set(1, 9);
    for (const auto& [a, b] : { std::pair(0, 1), std::pair(2, 3), std::pair(1, 3), std::pair(4, 5),
             std::pair(6, 7), std::pair(5, 7), std::pair(3, 7) })
        set.join(a, b);
    EXPECT_EQ(set.find(0), 7); // along 0, 1, 3, 7

    // Hang 3, which is no root, under 8, whose rank is higher: what still leads through 3 goes
    // along.
    for (int i = 0; i < 3; ++i)
        set.join(8, 8);
    set.join(8, 3);
    EXPECT_EQ(set.find(0), 7) << "was re-pointed past 3";
    EXPECT_EQ(set.find(1), 8) << "kept its link to 3";
}

TEST(VXDisjointSet, joiningAnElementWithItselfCountsItTwice)
{
    VXDisjointSet set(1, 3);
    set.join(1, 1);
    EXPECT_EQ(set.find(1), 1);
    EXPECT_EQ(set.size(1), 2);
    EXPECT_EQ(set.value(1), 0.5);
    EXPECT_EQ(set.getCount(), 2);
}

TEST(VXDisjointSet, indicesOutsideAreAnsweredAndChangeNothing)
{
    VXDisjointSet set(2, 2);
    for (const int outside : { -1, 4, INT_MIN, INT_MAX }) {
        EXPECT_EQ(set.find(outside), -1);
        EXPECT_EQ(set.size(outside), 0);
        EXPECT_EQ(set.value(outside), 0.0);
        set.join(outside, 0);
        set.join(0, outside);
    }
    EXPECT_EQ(set.getCount(), 4);
    EXPECT_EQ(labelsOf(set, 2, 2), (std::vector { 0, 1, 2, 3 }));
}

TEST(VXDisjointSet, findEndsEvenAfterElementsWereJoinedIntoACircle)
{
    VXDisjointSet set(1, 4);
    set.join(1, 0);
    set.join(2, 1); // 1 is no root any more, but of rank 1 now, as 0 is
    set.join(0, 1);
    for (int i = 0; i < 4; ++i)
        EXPECT_GE(set.find(i), 0);
    EXPECT_FALSE(set.getSegmentSizes().isEmpty());
}

TEST(VXDisjointSet, subSetsAreLabelledByTheirRoots)
{
    VXDisjointSet set(1, 3);
    set.join(0, 1);
    EXPECT_EQ(labelsOf(set, 1, 3), (std::vector { 1, 1, 2 }));
}

TEST(VXDisjointSet, copiesAreIndependent)
{
    VXDisjointSet set(1, 3);
    VXDisjointSet copy(set);
    set.join(0, 1);
    EXPECT_EQ(copy.find(0), 0);
    EXPECT_EQ(copy.getCount(), 3);
}

TEST(VXDisjointSet, segmentSizesOfFreshCellsAreTheirPositions)
{
    EXPECT_EQ(VXDisjointSet(1, 2).getSegmentSizes(),
        (Extents { { 0, { 0, 0, 0, 0 } }, { 1, { 1, 0, 1, 0 } } }));
}

TEST(VXDisjointSet, segmentSizesFollowTheCellsFromLeftToRight)
{
    // Cells (0, 2), (1, 0) and (1, 1) of a grid of 2 rows and 3 columns.
    VXDisjointSet set(2, 3);
    set.join(2, 3);
    set.join(set.find(4), set.find(3));
    EXPECT_EQ(set.getSegmentSizes().value(set.find(2)), (QVector<int> { 0, 0, 1, 1 }));

    // Without (1, 1) the second column stays where the first one was.
    VXDisjointSet two(2, 3);
    two.join(2, 3);
    EXPECT_EQ(two.getSegmentSizes().value(two.find(2)), (QVector<int> { 0, 0, 2, 1 }));
}

TEST(VXDisjointSet, informationsOfASingleCellAreItsBoundsAndItsMiddle)
{
    VXDisjointSet set(1, 1);
    const std::map<int, segment> segments = set.getSegmentInformations();
    ASSERT_EQ(segments.size(), 1U);
    const segment& only = segments.at(0);
    EXPECT_EQ(only.minX, 0);
    EXPECT_EQ(only.minY, 0);
    EXPECT_EQ(only.maxX, 1);
    EXPECT_EQ(only.maxY, 1);
    EXPECT_EQ(only.centroidX, 0.5F);
    EXPECT_EQ(only.centroidY, 0.5F);
}

TEST(VXDisjointSet, informationsOfARowRaiseTheRightBoundToTheLastColumnOnly)
{
    VXDisjointSet set(1, 4);
    for (int i = 1; i < 4; ++i)
        set.join(set.find(i), set.find(0));
    const segment only = set.getSegmentInformations().begin()->second;
    EXPECT_EQ(only.minX, 0);
    EXPECT_EQ(only.minY, 0);
    EXPECT_EQ(only.maxX, 3);
    EXPECT_EQ(only.maxY, 1);
    EXPECT_EQ(only.centroidX, 2.0F);
    EXPECT_EQ(only.centroidY, 0.5F);
}

TEST(VXDisjointSet, centroidOfThreeCellsIsTheMeanOfTheirSixCorners)
{
    VXDisjointSet set(2, 2); // cells (0, 0), (0, 1) and (1, 0)
    set.join(0, 1);
    set.join(2, 1);
    const segment three = set.getSegmentInformations().at(1);
    EXPECT_EQ(three.centroidX, 5.0F / 6); // 0 + 1 + 1 + 2 + 0 + 1
    EXPECT_EQ(three.centroidY, 5.0F / 6); // 0 + 1 + 0 + 1 + 1 + 2
}

// Beyond column 2²⁴ not every one is a float. Column 16777217 becomes 16777216, so that the sum of all
// corners is 0 + 1 + 16777216 + 16777218; it is rounded twice on the way, to 33554432.
TEST(VXDisjointSet, coordinatesBecomeFloatsBeforeTheyAreAdded)
{
    constexpr int far = (1 << 24) + 1;
    VXDisjointSet set(1, far + 1);
    set.join(0, far);
    // One segment of the others, whose root counts two cells: then it needs no hull.
    set.join(1, 2);
    for (int i = 3; i < far; ++i)
        set.join(i, 1);
    const auto segments = set.getSegmentInformations();
    EXPECT_EQ(segments.size(), 2U);
    EXPECT_EQ(segments.at(far).centroidX, 33554432.0F / 4);
}

TEST(VXDisjointSet, centroidOfCellsOnOneLineIsNoNumber)
{
    VXDisjointSet set(4, 4);
    for (const int diagonal : { 5, 10, 15 })
        set.join(set.find(diagonal), set.find(0));
    EXPECT_TRUE(std::isnan(set.getSegmentInformations().at(set.find(0)).centroidX));
}

TEST(VXDisjointSet, segmentRecordIsReachableThroughTheClassToo)
{
    EXPECT_TRUE((std::is_same_v<VXDisjointSet::segment, segment>));
}

TEST(VXDisjointSet, hullOfASquareIsClosedAndDropsWhatIsNoCorner)
{
    VXDisjointSet set(1, 1);
    EXPECT_EQ(set.convex_hull({ { 2, 2 }, { 0, 0 }, { 1, 1 }, { 0, 2 }, { 2, 0 }, { 1, 0 } }),
        (Points { { 0, 0 }, { 2, 0 }, { 2, 2 }, { 0, 2 }, { 0, 0 } }));
}

TEST(VXDisjointSet, hullsOfFewPointsAreThosePoints)
{
    VXDisjointSet set(1, 1);
    EXPECT_TRUE(set.convex_hull({}).empty());
    EXPECT_EQ(set.convex_hull({ { 3, 4 } }), (Points { { 3, 4 } }));
    EXPECT_EQ(set.convex_hull({ { 3, 4 }, { 1, 2 } }), (Points { { 1, 2 }, { 3, 4 }, { 1, 2 } }));
    EXPECT_EQ(set.convex_hull({ { 0, 0 }, { 1, 1 }, { 2, 2 } }),
        (Points { { 0, 0 }, { 2, 2 }, { 0, 0 } }));
}

TEST(VXDisjointSet, hullOfCopiesOfOnePointHoldsCopiesOfIt)
{
    VXDisjointSet set(1, 1);
    for (const std::size_t count : { 2U, 3U, 9U })
        EXPECT_EQ(set.convex_hull(Points(count, { 5, 5 })), Points(3, { 5, 5 })) << count;
}

TEST(VXDisjointSet, hullsOfRandomPointsAreThoseOfAWalkAroundThem)
{
    VXDisjointSet set(1, 1);
    support::Random random(1);
    for (int round = 0; round < 2000; ++round) {
        Points points;
        const int spread = 2 + random.below(20);
        const int count = 2 + random.below(30);
        for (int i = 0; i < count; ++i)
            points.emplace_back(random.below(spread) - 5, random.below(spread) - 5);
        if (std::count(points.begin(), points.end(), points.front()) == count)
            continue;
        ASSERT_EQ(set.convex_hull(points), hullByWalking(points)) << round;
    }
}

TEST(VXDisjointSet, crossTurnsAndWraps)
{
    VXDisjointSet set(1, 1);
    EXPECT_EQ(set.cross({ 0, 0 }, { 1, 0 }, { 0, 1 }), 1);
    EXPECT_EQ(set.cross({ 0, 0 }, { 0, 1 }, { 1, 0 }), -1);
    EXPECT_EQ(set.cross({ 1, 1 }, { 3, 3 }, { 5, 5 }), 0);
    EXPECT_EQ(set.cross({ 0, 0 }, { 65536, 0 }, { 0, 65536 }), 0) << "2³² wraps to 0";
    EXPECT_EQ(set.cross({ 0, 0 }, { 65536, 0 }, { 0, 32768 }), INT_MIN) << "2³¹ wraps";
    EXPECT_EQ(set.cross({ INT_MIN, 0 }, { INT_MAX, 0 }, { INT_MIN, 3 }), -3) << "2³² - 1 wraps";
}

TEST(VXDisjointSet, lexicallySmallerOrdersByXAndThenByY)
{
    EXPECT_TRUE(lexicallySmaller({ 1, 9 }, { 2, 0 }));
    EXPECT_TRUE(lexicallySmaller({ 1, 1 }, { 1, 2 }));
    EXPECT_FALSE(lexicallySmaller({ 1, 2 }, { 1, 2 }));
    EXPECT_FALSE(lexicallySmaller({ 2, 0 }, { 1, 9 }));
}

TEST(VXDisjointSet, centroidOfAnEmptyPolygonThrows)
{
    VXDisjointSet set(1, 1);
    Points none;
    EXPECT_THROW(set.calculateCentroid(&none), std::out_of_range);
    EXPECT_THROW(set.calculateCentroid(nullptr), std::out_of_range);
}

TEST(VXDisjointSet, centroidOfASingleVertexIsNoNumber)
{
    VXDisjointSet set(1, 1);
    Points one { { 3, 4 } };
    const auto [x, y] = set.calculateCentroid(&one);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
}

TEST(VXDisjointSet, centroidOfARectangleIsItsMiddleOpenOrClosed)
{
    VXDisjointSet set(1, 1);
    Points open { { 0, 0 }, { 4, 0 }, { 4, 2 }, { 0, 2 } };
    Points closed = open;
    closed.push_back(open.front());
    EXPECT_EQ(set.calculateCentroid(&open), std::pair(2.0F, 1.0F));
    EXPECT_EQ(set.calculateCentroid(&closed), std::pair(2.0F, 1.0F));
}

TEST(VXDisjointSet, centroidRoundsEverySumToSinglePrecision)
{
    VXDisjointSet set(1, 1);
    support::Random random(2);
    for (int round = 0; round < 20000; ++round) {
        Points polygon;
        const int count = 1 + random.below(12);
        for (int i = 0; i < count; ++i)
            polygon.emplace_back(random.below(20000) - 10000, random.below(20000) - 10000);
        expectSame(centroidByHand(polygon), set.calculateCentroid(&polygon));
    }
}

TEST(VXDisjointSet, centroidArithmeticWrapsForExtremeVertices)
{
    VXDisjointSet set(1, 1);
    Points extreme { { INT_MAX, INT_MIN }, { INT_MIN, INT_MAX }, { INT_MAX, INT_MAX } };
    EXPECT_NO_THROW(set.calculateCentroid(&extreme));
}

TEST(VXDisjointSet, randomJoinsAgreeWithASetWithoutTrees)
{
    support::Random random(3);
    for (int round = 0; round < 300; ++round) {
        auto [rows, columns, set, plain] = RandomSets(random);

        const std::set<int> roots(plain.roots.begin(), plain.roots.end());
        EXPECT_EQ(set.getCount(), static_cast<int>(roots.size()));
        for (const int root : roots) {
            EXPECT_EQ(set.size(root), plain.size(root));
            EXPECT_EQ(set.value(root), double(plain.rank(root)) / plain.size(root));
        }
        ASSERT_EQ(labelsOf(set, rows, columns), plain.roots);
    }
}

TEST(VXDisjointSet, informationsAgreeWithHullsAndSumsMadeByHand)
{
    support::Random random(4);
    for (int round = 0; round < 300; ++round) {
        auto [rows, columns, set, plain] = RandomSets(random);

        for (const auto& [root, bounds] : set.getSegmentInformations()) {
            Points corners;
            for (int i = 0; i < rows * columns; ++i) {
                if (plain.roots[static_cast<std::size_t>(i)] == root) {
                    corners.emplace_back(i % columns, i / columns);
                    corners.emplace_back(i % columns + 1, i / columns + 1);
                }
            }
            if (plain.size(root) > 3) {
                expectSame(
                    centroidByHand(hullByWalking(corners)), { bounds.centroidX, bounds.centroidY });
                continue;
            }
            QPoint sum;
            for (const QPoint& corner : corners)
                sum += corner;
            const auto count = static_cast<float>(corners.size());
            expectSame({ static_cast<float>(sum.x()) / count, static_cast<float>(sum.y()) / count },
                { bounds.centroidX, bounds.centroidY });
        }
    }
}
