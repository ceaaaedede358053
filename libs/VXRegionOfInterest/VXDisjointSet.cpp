#include "kernels/image/ExactArithmetic.h"

#include "VXDisjointSet.h"

#include "kernels/image/Wrapping.h"

#include <QSize>

#include <algorithm>
#include <stdexcept>

namespace {

using vx::kernels::wrappingDifference;
using vx::kernels::wrappingProduct;
using vx::kernels::wrappingSum;

// A sum that is rounded to single precision after every addition. GCC 12 keeps such sums in double
// when it vectorises them; volatile makes every one of them round.
class SinglePrecisionSum {
public:
    void add(double term) { sum = static_cast<float>(static_cast<double>(sum) + term); }
    double value() const { return static_cast<double>(sum); }

private:
    volatile float sum = 0;
};

std::pair<float, float> meanOf(const std::vector<QPoint>& points)
{
    SinglePrecisionSum x;
    SinglePrecisionSum y;
    for (const QPoint& point : points) {
        x.add(static_cast<double>(static_cast<float>(point.x())));
        y.add(static_cast<double>(static_cast<float>(point.y())));
    }
    const auto count = static_cast<float>(points.size());
    return { static_cast<float>(x.value()) / count, static_cast<float>(y.value()) / count };
}

// The size of a grid in cells: none where there is not an element for each of them.
QSize cellsOf(int rows, int columns, int elements)
{
    const QSize cells(std::max(columns, 0), std::max(rows, 0));
    return qint64 { cells.width() } * cells.height() == elements ? cells : QSize(0, 0);
}

} // namespace

bool lexicallySmaller(const QPoint& p, const QPoint& q)
{
    return p.x() < q.x() || (p.x() == q.x() && p.y() < q.y());
}

VXDisjointSet::VXDisjointSet(int gridRows, int gridColumns)
    : rows(gridRows)
    , columns(gridColumns)
    , count(wrappingProduct(rows, columns))
{
    elements.reserve(std::max(count, 0));
    for (int i = 0; i < count; ++i)
        elements.append(VXDisjointElement(0, 1, i));
}

bool VXDisjointSet::contains(int i) const { return i >= 0 && i < elements.size(); }

int VXDisjointSet::find(int i)
{
    if (!contains(i))
        return -1;
    int root = i;
    // No chain is longer than the set, unless elements that are not roots were joined into a cycle.
    for (int links = elements.size(); links > 0 && elements.at(root).parent != root; --links)
        root = elements.at(root).parent;
    elements[i].parent = root;
    return root;
}

void VXDisjointSet::join(int a, int b)
{
    if (!contains(a) || !contains(b))
        return;
    const bool staysRoot = elements.at(a).rank > elements.at(b).rank;
    const int root = staysRoot ? a : b;
    const int child = staysRoot ? b : a;
    const bool isTie = elements.at(a).rank == elements.at(b).rank;

    elements[child].parent = root;
    elements[root].size = wrappingSum(elements.at(root).size, elements.at(child).size);
    if (isTie)
        elements[root].rank = wrappingSum(elements.at(root).rank, 1);
    count = wrappingDifference(count, 1);
}

int VXDisjointSet::getCount() { return count; }

int VXDisjointSet::size(int i) { return contains(i) ? elements.at(i).size : 0; }

double VXDisjointSet::value(int i) const
{
    if (!contains(i))
        return 0.0;
    return static_cast<double>(elements.at(i).rank) / static_cast<double>(elements.at(i).size);
}

int** VXDisjointSet::getSubSets()
{
    const QSize cells = cellsOf(rows, columns, elements.size());
    int** const labels = new int*[static_cast<std::size_t>(cells.height())];
    for (int row = 0; row < cells.height(); ++row) {
        labels[row] = new int[static_cast<std::size_t>(cells.width())];
        for (int column = 0; column < cells.width(); ++column)
            labels[row][column] = find(row * columns + column);
    }
    return labels;
}

QMap<int, QVector<int>> VXDisjointSet::getSegmentSizes()
{
    QMap<int, QVector<int>> sizes;
    const QSize cells = cellsOf(rows, columns, elements.size());
    for (int i = 0; i < cells.width() * cells.height(); ++i) {
        const int row = i / columns;
        const int column = i % columns;
        const int root = find(i);
        if (!sizes.contains(root)) {
            sizes.insert(root, { column, row, column, row });
            continue;
        }
        QVector<int>& extent = sizes[root];
        const auto widen = [&extent](int first, int second, int position) {
            if (extent.at(first) < position) {
                extent[second] = position;
            } else {
                extent[second] = extent.at(first);
                extent[first] = position;
            }
        };
        widen(0, 2, column);
        widen(1, 3, row);
    }
    return sizes;
}

std::map<int, segment> VXDisjointSet::getSegmentInformations()
{
    std::map<int, segment> segments;
    std::map<int, std::vector<QPoint>> corners;
    const QSize cells = cellsOf(rows, columns, elements.size());
    for (int i = 0; i < cells.width() * cells.height(); ++i) {
        const int row = i / columns;
        const int column = i % columns;
        const int root = find(i);
        corners[root].push_back(QPoint(column, row));
        corners[root].push_back(QPoint(column + 1, row + 1));

        const auto [entry, isNew]
            = segments.insert({ root, { column, row, column + 1, row + 1, 0, 0 } });
        segment& bounds = entry->second;
        if (isNew)
            continue;
        if (bounds.minX > column)
            bounds.minX = column;
        else if (bounds.maxX < column)
            bounds.maxX = column;
        if (bounds.minY > row)
            bounds.minY = row;
        else if (bounds.maxY < row)
            bounds.maxY = row;
    }
    for (auto& [root, bounds] : segments) {
        std::vector<QPoint>& points = corners.at(root);
        const bool isSmall = elements.at(root).size <= 3;
        if (!isSmall)
            points = convex_hull(points);
        const auto [x, y] = isSmall ? meanOf(points) : calculateCentroid(&points);
        bounds.centroidX = x;
        bounds.centroidY = y;
    }
    return segments;
}

std::vector<QPoint> VXDisjointSet::convex_hull(std::vector<QPoint> points)
{
    std::sort(points.begin(), points.end(), lexicallySmaller);

    std::vector<QPoint> hull;
    hull.reserve(2 * points.size());
    // Appends a point, after dropping the points that are no corners because of it. The chain keeps its first point:
    // nothing is dropped from a hull of fewer than `least` points.
    const auto turnTo = [&](const QPoint& point, std::size_t least) {
        while (hull.size() >= least && cross(hull[hull.size() - 2], hull.back(), point) <= 0)
            hull.pop_back();
        hull.push_back(point);
    };
    for (const QPoint& point : points)
        turnTo(point, 2);
    // The upper chain begins with the last point of the lower one and leads back to the first.
    const std::size_t twoOfUpperChain = hull.size() + 1;
    for (std::size_t next = points.size(); next > 1; --next)
        turnTo(points[next - 2], twoOfUpperChain);
    return hull;
}

std::pair<float, float> VXDisjointSet::calculateCentroid(std::vector<QPoint>* polygon)
{
    if (polygon == nullptr || polygon->empty())
        throw std::out_of_range("VXDisjointSet::calculateCentroid: the polygon has no vertex");

    double area = 0;
    SinglePrecisionSum sumX;
    SinglePrecisionSum sumY;
    const auto addEdge = [&](const QPoint& a, const QPoint& b) {
        const int c
            = wrappingDifference(wrappingProduct(a.x(), b.y()), wrappingProduct(b.x(), a.y()));
        area += c;
        sumX.add(static_cast<double>(wrappingSum(a.x(), b.x())) * c);
        sumY.add(static_cast<double>(wrappingSum(a.y(), b.y())) * c);
    };
    for (std::size_t i = 0; i + 1 < polygon->size(); ++i)
        addEdge(polygon->at(i), polygon->at(i + 1));
    addEdge(polygon->back(), polygon->front());

    const double sixfoldArea = area * 0.5 * 6;
    return { static_cast<float>(sumX.value() / sixfoldArea),
        static_cast<float>(sumY.value() / sixfoldArea) };
}

int VXDisjointSet::cross(QPoint o, QPoint a, QPoint b)
{
    const int rightwards
        = wrappingProduct(wrappingDifference(a.x(), o.x()), wrappingDifference(b.y(), o.y()));
    const int leftwards
        = wrappingProduct(wrappingDifference(a.y(), o.y()), wrappingDifference(b.x(), o.x()));
    return wrappingDifference(rightwards, leftwards);
}
