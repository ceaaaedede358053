#include "Evaluation.h"

#include "host/CropWindow.h"
#include "host/HostError.h"
#include "host/PictureReader.h"

#include <algorithm>

namespace evaluate {

namespace {

int pointsWithin(const QVector<int>& sums, int start, int length)
{
    return sums.at(start + length) - sums.at(start);
}

int mostPointsWithin(const QVector<int>& sums, int length)
{
    int most = 0;
    for (int start = 0; start + length < sums.size(); ++start)
        most = std::max(most, pointsWithin(sums, start, length));
    return most;
}

void accumulate(QVector<int>& counts)
{
    for (int i = 1; i < counts.size(); ++i)
        counts[i] += counts.at(i - 1);
}

} // namespace

Sample::Sample(const QString& photograph, const QString& points)
{
    const host::ReadingRules rules;
    host::PictureFile picture(photograph, rules);
    pictureSize = picture.orientedSize();
    working = picture.readWorkingImage();

    const QImage counted
        = host::PictureFile(points, rules).readPixels().convertToFormat(QImage::Format_Grayscale8);
    if (counted.size() != pictureSize)
        throw host::HostError(host::ExitCode::UnreadableInput, points,
            QStringLiteral("is not as large as its photograph"),
            QStringLiteral("give each photograph its own points"));
    columns.fill(0, pictureSize.width() + 1);
    rows.fill(0, pictureSize.height() + 1);
    for (int y = 0; y < counted.height(); ++y) {
        const uchar* const row = counted.constScanLine(y);
        for (int x = 0; x < counted.width(); ++x) {
            columns[x + 1] += row[x] == 0 ? 0 : 1;
            rows[y + 1] += row[x] == 0 ? 0 : 1;
        }
    }
    accumulate(columns);
    accumulate(rows);
}

double Sample::keptBy(const QRect& window) const
{
    const int kept = window.height() == pictureSize.height()
        ? pointsWithin(columns, window.left(), window.width())
        : pointsWithin(rows, window.top(), window.height());
    return static_cast<double>(kept) / std::max(columns.last(), 1);
}

double Sample::keptByBest(const QSize& window) const
{
    const int kept = window.height() == pictureSize.height()
        ? mostPointsWithin(columns, window.width())
        : mostPointsWithin(rows, window.height());
    return static_cast<double>(kept) / std::max(columns.last(), 1);
}

double Kept::score() const { return best > centre ? (chosen - centre) / (best - centre) : 0; }

Kept evaluate(const QVector<Sample>& samples, const VXCropSettings& settings, const QSize& ratio)
{
    Kept kept;
    for (const Sample& sample : samples) {
        const QRect window
            = VXCrop::fromWorkingImage(sample.workingImage(), sample.size(), settings)
                  .window(ratio)
                  .window;
        kept.chosen += sample.keptBy(window) / samples.size();
        kept.centre
            += sample.keptBy(host::centredIn(sample.size(), window.size())) / samples.size();
        kept.best += sample.keptByBest(window.size()) / samples.size();
    }
    return kept;
}

} // namespace evaluate
