#include "Evaluation.h"

#include "host/HostError.h"
#include "host/picture/PictureFile.h"
#include "host/records/CropWindow.h"

#include <algorithm>
#include <random>
#include <vector>

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

double gainOf(const Kept& kept)
{
    return kept.best > kept.centre ? (kept.chosen - kept.centre) / (kept.best - kept.centre) : 0;
}

void accumulate(QVector<int>& counts)
{
    for (int i = 1; i < counts.size(); ++i)
        counts[i] += counts.at(i - 1);
}

} // namespace

Sample::Sample(const QString& photograph, const QString& points, host::FaceDetector* detector)
{
    const host::ReadingRules rules;
    host::PictureFile picture(photograph, rules);
    pictureSize = picture.orientedSize();
    working = picture.readWorkingImage();
    if (detector != nullptr)
        faceBoxes = host::boxesOf(detector->detect(photograph, rules.mostSeconds).faces);

    const QImage counted
        = host::PictureFile(points, rules).readAll().convertToFormat(QImage::Format_Grayscale8);
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

Kept meanOf(const QVector<Kept>& all)
{
    Kept mean;
    for (const Kept& kept : all) {
        mean.chosen += kept.chosen / all.size();
        mean.centre += kept.centre / all.size();
        mean.best += kept.best / all.size();
    }
    return mean;
}

QRect cropOf(const Sample& sample, const Choice& choice, const QSize& ratio)
{
    VXCropConstraints constraints;
    if (choice.areFacesKept)
        constraints.faces = sample.faces();
    return VXCrop::fromWorkingImage(sample.workingImage(), sample.size(), choice.settings)
        .window(ratio, constraints)
        .window;
}

Kept keptOf(const Sample& sample, const Choice& choice, const QSize& ratio)
{
    const QRect window = cropOf(sample, choice, ratio);
    return { sample.keptBy(window), sample.keptBy(host::centredIn(sample.size(), window.size())),
        sample.keptByBest(window.size()) };
}

FaceCounts facesIn(const QVector<Sample>& samples, const Choice& choice, const QSize& ratio)
{
    FaceCounts counts;
    for (const Sample& sample : samples) {
        const QRect window = cropOf(sample, choice, ratio);
        for (const QRect& face : sample.faces()) {
            if (face.width() > window.width() || face.height() > window.height())
                continue;
            if (window.contains(face))
                ++counts.whole;
            else
                ++(window.intersects(face) ? counts.cut : counts.leftOut);
        }
    }
    return counts;
}

Summary summaryOf(const QVector<Kept>& all)
{
    constexpr int resamples = 2000;
    constexpr int tail = resamples * 25 / 1000;
    std::mt19937 random; // NOLINT(cert-msc*): the same numbers in every run
    const auto count = static_cast<unsigned>(all.size());
    std::vector<double> gains;
    for (int i = 0; i < resamples; ++i) {
        QVector<Kept> drawn;
        for (unsigned j = 0; j < count; ++j)
            drawn.append(all.at(static_cast<int>(random() % count)));
        gains.push_back(gainOf(meanOf(drawn)));
    }
    std::sort(gains.begin(), gains.end());
    const Kept mean = meanOf(all);
    return { mean, gainOf(mean), gains[tail], gains[resamples - 1 - tail] };
}

} // namespace evaluate
