#include "../image/ExactArithmetic.h"

#include "../background/BackgroundMap.h"

#include "../background/Lab.h"
#include "../image/PixelWords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace vx::kernels;

using Numbers = std::vector<double>;

constexpr double infinite = std::numeric_limits<double>::infinity();

// A grid of cells, whose values are kept row by row.
struct Grid {
    int columns;
    int rows;

    int count() const { return columns * rows; }
    std::size_t index(int x, int y) const
    {
        const int column = std::clamp(x, 0, columns - 1);
        const int row = std::clamp(y, 0, rows - 1);
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns)
            + static_cast<std::size_t>(column);
    }
    bool isBorder(int x, int y) const
    {
        return x == 0 || x == columns - 1 || y == 0 || y == rows - 1;
    }
    // Calls visit(x, y) for each cell, row by row.
    template <typename Visit> void forEach(const Visit& visit) const
    {
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x)
                visit(x, y);
        }
    }
};

// The channels L, a and b.
using Channels = std::array<Numbers, 3>;

int cellsAlong(int pixels, int longerSide, int cellsOfLonger)
{
    const double cells = std::floor(static_cast<double>(cellsOfLonger) * pixels / longerSide + 0.5);
    return std::clamp(static_cast<int>(cells), 1, pixels);
}

Grid gridOf(const QImage& words, int cellsOfLonger)
{
    const int longer = std::max(words.width(), words.height());
    return { cellsAlong(words.width(), longer, cellsOfLonger),
        cellsAlong(words.height(), longer, cellsOfLonger) };
}

Channels coloursOf(const QImage& words, const Grid& grid)
{
    Channels channels;
    grid.forEach([&](int cellX, int cellY) {
        const auto left = static_cast<int>(qint64 { cellX } * words.width() / grid.columns);
        const auto right = static_cast<int>(qint64 { cellX + 1 } * words.width() / grid.columns);
        const auto top = static_cast<int>(qint64 { cellY } * words.height() / grid.rows);
        const auto bottom = static_cast<int>(qint64 { cellY + 1 } * words.height() / grid.rows);
        double red = 0;
        double green = 0;
        double blue = 0;
        for (int y = top; y < bottom; ++y) {
            for (int x = left; x < right; ++x) {
                red += qRed(wordRow(words, y)[x]);
                green += qGreen(wordRow(words, y)[x]);
                blue += qBlue(wordRow(words, y)[x]);
            }
        }
        const double pixels = static_cast<double>(right - left) * (bottom - top);
        const auto mean
            = [pixels](double sum) { return static_cast<int>(std::floor(sum / pixels + 0.5)); };
        const Lab colour = labOf(qRgb(mean(red), mean(green), mean(blue)));
        channels[0].push_back(colour.lightness);
        channels[1].push_back(colour.a);
        channels[2].push_back(colour.b);
    });
    return channels;
}

void stretch(Numbers& numbers)
{
    const double least = *std::min_element(numbers.begin(), numbers.end());
    const double most = *std::max_element(numbers.begin(), numbers.end());
    for (double& number : numbers)
        number = most > least ? (number - least) / (most - least) : 0;
}

Numbers smoothed(const Numbers& channel, const Grid& grid)
{
    Numbers along;
    grid.forEach([&](int x, int y) {
        along.push_back((channel[grid.index(x - 1, y)] + 2 * channel[grid.index(x, y)]
                            + channel[grid.index(x + 1, y)])
            / 4);
    });
    Numbers both;
    grid.forEach([&](int x, int y) {
        both.push_back((along[grid.index(x, y - 1)] + 2 * along[grid.index(x, y)]
                           + along[grid.index(x, y + 1)])
            / 4);
    });
    return both;
}

// One channel's distance to the border.
struct Barrier {
    Barrier(const Numbers& channel, const Grid& cells)
        : grid(cells)
        , values(smoothed(channel, grid))
        , highest(values)
        , lowest(values)
        , distance(values.size(), infinite)
    {
        grid.forEach([&](int x, int y) {
            if (grid.isBorder(x, y))
                distance[grid.index(x, y)] = 0;
        });
        pass(1);
        pass(-1);
        pass(1);
    }

    // Down and right with a step of 1, up and left with a step of -1.
    void pass(int step)
    {
        for (int v = 1; v < grid.rows - 1; ++v) {
            for (int u = 1; u < grid.columns - 1; ++u) {
                const int x = step > 0 ? u : grid.columns - 1 - u;
                const int y = step > 0 ? v : grid.rows - 1 - v;
                update(grid.index(x, y), grid.index(x, y - step));
                update(grid.index(x, y), grid.index(x - step, y));
            }
        }
    }

    void update(std::size_t cell, std::size_t neighbour)
    {
        const double most = std::max(highest[neighbour], values[cell]);
        const double least = std::min(lowest[neighbour], values[cell]);
        if (most - least < distance[cell]) {
            distance[cell] = most - least;
            highest[cell] = most;
            lowest[cell] = least;
        }
    }

    const Grid& grid;
    Numbers values;
    Numbers highest;
    Numbers lowest;
    Numbers distance;
};

Numbers barrierDistance(const Channels& channels, const Grid& grid)
{
    Numbers sums(channels[0].size(), 0.0);
    for (const Numbers& channel : channels) {
        const Barrier barrier(channel, grid);
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += barrier.distance[i];
    }
    stretch(sums);
    return sums;
}

// The mean and the covariance of the colours of some cells.
struct Colours {
    // Of the cells for which isMeant(x, y).
    template <typename Selection>
    Colours(const Channels& channels, const Grid& grid, const Selection& isMeant)
    {
        double count = 0;
        const auto forEachMeant = [&](const auto& visit) {
            grid.forEach([&](int x, int y) {
                if (isMeant(x, y))
                    visit(grid.index(x, y));
            });
        };
        forEachMeant([&](std::size_t cell) {
            ++count;
            for (std::size_t i = 0; i < 3; ++i)
                mean[i] += channels[i][cell];
        });
        for (double& value : mean)
            value /= count;
        forEachMeant([&](std::size_t cell) {
            for (std::size_t i = 0; i < 3; ++i) {
                for (std::size_t j = 0; j < 3; ++j)
                    covariance[i][j]
                        += (channels[i][cell] - mean[i]) * (channels[j][cell] - mean[j]);
            }
        });
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j)
                covariance[i][j] = covariance[i][j] / count + (i == j ? 16 : 0);
        }
    }

    // The determinant without row i and column j, with its sign.
    double cofactor(std::size_t i, std::size_t j) const
    {
        const auto& m = covariance;
        const std::size_t row = (i + 1) % 3;
        const std::size_t nextRow = (i + 2) % 3;
        const std::size_t column = (j + 1) % 3;
        const std::size_t nextColumn = (j + 2) % 3;
        return m[row][column] * m[nextRow][nextColumn] - m[row][nextColumn] * m[nextRow][column];
    }

    double distanceTo(const Channels& channels, std::size_t cell) const
    {
        const double determinant = covariance[0][0] * cofactor(0, 0)
            + covariance[0][1] * cofactor(0, 1) + covariance[0][2] * cofactor(0, 2);
        const auto inverse
            = [&](std::size_t i, std::size_t j) { return cofactor(i, j) / determinant; };
        std::array<double, 3> d {};
        for (std::size_t i = 0; i < 3; ++i)
            d[i] = channels[i][cell] - mean[i];
        const double squares = inverse(0, 0) * d[0] * d[0] + inverse(1, 1) * d[1] * d[1]
            + inverse(2, 2) * d[2] * d[2];
        const double products = inverse(0, 1) * d[0] * d[1] + inverse(0, 2) * d[0] * d[2]
            + inverse(1, 2) * d[1] * d[2];
        return std::sqrt(std::max(squares + 2 * products, 0.0));
    }

    std::array<double, 3> mean {};
    std::array<std::array<double, 3>, 3> covariance {};
};

Numbers borderColourDistance(const Channels& channels, const Grid& grid)
{
    const int width = std::max(static_cast<int>(std::floor(0.1 * grid.columns + 0.5)), 1);
    const int height = std::max(static_cast<int>(std::floor(0.1 * grid.rows + 0.5)), 1);
    const std::array<Colours, 4> bands { Colours(channels, grid,
                                             [=](int x, int /*y*/) { return x < width; }),
        Colours(channels, grid, [=](int x, int /*y*/) { return x >= grid.columns - width; }),
        Colours(channels, grid, [=](int /*x*/, int y) { return y < height; }),
        Colours(channels, grid, [=](int /*x*/, int y) { return y >= grid.rows - height; }) };
    std::array<Numbers, 4> distances;
    for (std::size_t band = 0; band < bands.size(); ++band) {
        for (std::size_t cell = 0; cell < channels[0].size(); ++cell)
            distances[band].push_back(bands[band].distanceTo(channels, cell));
        const double largest = *std::max_element(distances[band].begin(), distances[band].end());
        for (double& distance : distances[band])
            distance = largest > 0 ? distance / largest : 0;
    }
    Numbers sums;
    for (std::size_t cell = 0; cell < channels[0].size(); ++cell) {
        std::array<double, 4> ofCell { distances[0][cell], distances[1][cell], distances[2][cell],
            distances[3][cell] };
        std::sort(ofCell.begin(), ofCell.end());
        sums.push_back(ofCell[0] + ofCell[1]);
    }
    stretch(sums);
    return sums;
}

Channels averaged(const Channels& channels, const Grid& fine, const Grid& coarse)
{
    Channels means;
    for (std::size_t i = 0; i < 3; ++i) {
        Numbers sums(static_cast<std::size_t>(coarse.count()), 0.0);
        Numbers counts = sums;
        fine.forEach([&](int x, int y) {
            const std::size_t cell
                = coarse.index(x * coarse.columns / fine.columns, y * coarse.rows / fine.rows);
            sums[cell] += channels[i][fine.index(x, y)];
            ++counts[cell];
        });
        for (std::size_t cell = 0; cell < sums.size(); ++cell)
            means[i].push_back(sums[cell] / counts[cell]);
    }
    return means;
}

// The difference of the colours of two cells, infinite for one cell and itself.
double differenceOf(const Channels& channels, std::size_t one, std::size_t other)
{
    double squares = 0;
    for (const Numbers& channel : channels)
        squares += (channel[one] - channel[other]) * (channel[one] - channel[other]);
    return one == other ? infinite : std::sqrt(squares);
}

// Shortens paths until none gets shorter.
Numbers pathLengths(const Channels& channels, const Grid& grid)
{
    double sum = 0;
    Numbers lengths;
    grid.forEach([&](int x, int y) {
        double least = infinite;
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx)
                least = std::min(
                    least, differenceOf(channels, grid.index(x, y), grid.index(x + dx, y + dy)));
        }
        sum += least < infinite ? least : 0;
        lengths.push_back(grid.isBorder(x, y) ? 0 : infinite);
    });
    const double free = sum / grid.count();
    bool isShorter = true;
    while (isShorter) {
        isShorter = false;
        grid.forEach([&](int x, int y) {
            double& length = lengths[grid.index(x, y)];
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dx = -1; dx <= 1; ++dx) {
                    const std::size_t neighbour = grid.index(x + dx, y + dy);
                    const double step = differenceOf(channels, grid.index(x, y), neighbour) - free;
                    const double other = lengths[neighbour] + std::max(step, 0.0);
                    isShorter = isShorter || other < length;
                    length = std::min(length, other);
                }
            }
        });
    }
    return lengths;
}

// Where a position lies among cells, from the middle of the first to that of the last.
double placeOf(int position, int positions, int cells)
{
    const double place = (position + 0.5) * cells / positions - 0.5;
    return std::clamp(place, 0.0, static_cast<double>(cells - 1));
}

// A column of cells at a place between two rows.
double columnAt(const Numbers& cells, const Grid& grid, int column, double place)
{
    const int row = static_cast<int>(place);
    const double first = cells[grid.index(column, row)];
    const double second = cells[grid.index(column, row + 1)];
    return first + (second - first) * (place - row);
}

Numbers geodesicDistance(const Channels& channels, const Grid& fine, const Grid& coarse)
{
    const Numbers lengths = pathLengths(averaged(channels, fine, coarse), coarse);
    Numbers distances;
    fine.forEach([&](int x, int y) {
        const double place = placeOf(x, fine.columns, coarse.columns);
        const double row = placeOf(y, fine.rows, coarse.rows);
        const int column = static_cast<int>(place);
        const double first = columnAt(lengths, coarse, column, row);
        const double second = columnAt(lengths, coarse, column + 1, row);
        distances.push_back(first + (second - first) * (place - column));
    });
    stretch(distances);
    return distances;
}

// exp(-d² / (2 σ²)), d the distance of a cell's middle to that of all cells along an axis.
double bump(int cell, int cells, double deviation)
{
    const double distance = (cell + 0.5) / cells - 0.5;
    return std::exp(distance * distance * -0.5 / (deviation * deviation));
}

Numbers salienceOf(const QImage& words, const Grid& grid)
{
    const Channels channels = coloursOf(words, grid);
    const Numbers barrier = barrierDistance(channels, grid);
    const Numbers colours = borderColourDistance(channels, grid);
    const Numbers geodesic = geodesicDistance(channels, grid, gridOf(words, 20));
    Numbers salience;
    for (std::size_t cell = 0; cell < barrier.size(); ++cell)
        salience.push_back(barrier[cell] + colours[cell] + geodesic[cell]);
    stretch(salience);
    double sum = 0;
    for (const double value : salience)
        sum += value;
    const double mean = sum / grid.count();
    grid.forEach([&](int x, int y) {
        double& value = salience[grid.index(x, y)];
        value = std::max(value - 0.3 * mean, 0.0)
            * (bump(x, grid.columns, 0.4) * bump(y, grid.rows, 0.25));
    });
    const double largest = *std::max_element(salience.begin(), salience.end());
    for (double& value : salience)
        value = largest > 0 ? value / largest : 0;
    return salience;
}

} // namespace

void vx::kernels::reference::writeBackgroundMap(const QImage& words, QImage& map)
{
    if (words.isNull())
        return;
    const Grid grid = gridOf(words, 80);
    const Numbers salience = salienceOf(words, grid);
    for (int y = 0; y < map.height(); ++y) {
        const double row = placeOf(y, map.height(), grid.rows);
        for (int x = 0; x < map.width(); ++x) {
            const double place = placeOf(x, map.width(), grid.columns);
            const int column = static_cast<int>(place);
            const auto first = static_cast<float>(255 * columnAt(salience, grid, column, row));
            const auto second = static_cast<float>(255 * columnAt(salience, grid, column + 1, row));
            const auto share = static_cast<float>(place - column);
            // NOLINTNEXTLINE(bugprone-incorrect-roundings): grey values are not negative
            const int level = static_cast<int>(first + (second - first) * share + 0.5F);
            writableWordRow(map, y)[x] = opaqueGrey(level);
        }
    }
}
