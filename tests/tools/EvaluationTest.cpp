#include "evaluate/Table.h"

#include "SampleFiles.h"
#include "host/HostError.h"
#include "host/crop/SalienceSettings.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using evaluate::Sample;

class Evaluation : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QString photograph = folder.save(samples::picture({ 120, 80 }), QStringLiteral("a.png"));

    // Eight points in the ten leftmost columns, two in the ten rightmost.
    Sample sample(host::FaceDetector* detector = nullptr) const
    {
        QImage points(120, 80, QImage::Format_Grayscale8);
        points.fill(0);
        for (int i = 0; i < 8; ++i)
            points.scanLine(10 * i)[i] = 1;
        points.scanLine(5)[115] = 255;
        points.scanLine(75)[116] = 128;
        return Sample(photograph, folder.save(points, QStringLiteral("points.png")), detector);
    }

    // A sample whose faces are \a boxes: objects in JSON.
    Sample sampleWithFaces(const char* boxes) const
    {
        const auto detector = host::FaceDetector::ofCommand(
            QStringLiteral("read -r line; echo '{\"path\": \"%1\", \"faces\": [%2]}'")
                .arg(photograph, QLatin1String(boxes)),
            host::FaceDetector::OnProblem::Fail);
        return sample(detector.get());
    }
};

} // namespace

TEST_F(Evaluation, countsThePointsWithinAWindow)
{
    EXPECT_DOUBLE_EQ(sample().keptBy({ 0, 0, 80, 80 }), 0.8);
    EXPECT_DOUBLE_EQ(sample().keptBy({ 1, 0, 80, 80 }), 0.7);
    EXPECT_DOUBLE_EQ(sample().keptBy({ 40, 0, 80, 80 }), 0.2);
    EXPECT_DOUBLE_EQ(sample().keptBy({ 0, 0, 120, 11 }), 0.3)
        << "rows 0 and 10, and the point in row 5";
}

TEST_F(Evaluation, knowsTheBestWindowOfASize)
{
    EXPECT_DOUBLE_EQ(sample().keptByBest({ 80, 80 }), 0.8);
    EXPECT_DOUBLE_EQ(sample().keptByBest({ 110, 80 }), 0.8);
    EXPECT_DOUBLE_EQ(sample().keptByBest({ 3, 80 }), 0.3);
}

TEST_F(Evaluation, gainIsWhatChoosingAddsOfWhatItCould)
{
    const auto gainOf
        = [](const evaluate::Kept& kept) { return evaluate::summaryOf({ kept }).gain; };
    EXPECT_DOUBLE_EQ(gainOf({ 0.5, 0.5, 0.9 }), 0);
    EXPECT_DOUBLE_EQ(gainOf({ 0.9, 0.5, 0.9 }), 1);
    EXPECT_DOUBLE_EQ(gainOf({ 0.4, 0.5, 0.9 }), -0.25);
    EXPECT_DOUBLE_EQ(gainOf({ 0.9, 0.9, 0.9 }), 0) << "nothing to gain";
}

TEST_F(Evaluation, comparesWhatIsChosenWithTheCentre)
{
    // With every weight 0 the map is empty, and the centre is chosen.
    const evaluate::Kept kept = evaluate::keptOf(sample(), { host::withoutMethods() }, { 1, 1 });
    EXPECT_DOUBLE_EQ(kept.chosen, kept.centre);
    EXPECT_DOUBLE_EQ(kept.centre, 0);
    EXPECT_DOUBLE_EQ(kept.best, 0.8);
}

// Of n photographs half gain 1 and half 0: their mean varies by √(1/4 / n), and twice that is 95 %.
TEST_F(Evaluation, theIntervalIsThatOfTheMean)
{
    QVector<evaluate::Kept> all;
    for (int i = 0; i < 400; ++i)
        all.append({ i % 2 == 0 ? 1.0 : 0.0, 0, 1 });
    const evaluate::Summary summary = evaluate::summaryOf(all);
    EXPECT_NEAR(summary.gain, 0.5, 1e-12);
    EXPECT_NEAR(summary.leastGain, 0.5 - 1.96 * 0.025, 0.005);
    EXPECT_NEAR(summary.mostGain, 0.5 + 1.96 * 0.025, 0.005);
    EXPECT_DOUBLE_EQ(summary.leastGain, evaluate::summaryOf(all).leastGain) << "in every run";
}

// The centre crop, columns 20 to 99, has none of the ten points; the best one has the eight at the left.
// The centre crop has columns 20 to 99.
TEST_F(Evaluation, countsTheFacesThatFitIntoACrop)
{
    const QVector<Sample> samples {
        sampleWithFaces(R"({"x": 10, "y": 9, "width": 20, "height": 20})"),
        sampleWithFaces(R"({"x": 2, "y": 9, "width": 9, "height": 9})"),
        sampleWithFaces(R"({"x": 90, "y": 9, "width": 10, "height": 9})"),
        sampleWithFaces(R"({"x": 0, "y": 9, "width": 100, "height": 9})"),
        sample(),
    };
    const auto countsFor = [&](bool areFacesKept) {
        const evaluate::FaceCounts counts
            = evaluate::facesIn(samples, { host::withoutMethods(), areFacesKept }, { 1, 1 });
        return std::vector<int> { counts.whole, counts.cut, counts.leftOut };
    };
    EXPECT_EQ(countsFor(false), (std::vector<int> { 1, 1, 1 }));
    EXPECT_EQ(countsFor(true), (std::vector<int> { 3, 0, 0 }));
}

TEST_F(Evaluation, takesPresetsAndWeightsWithFacesOrWithout)
{
    EXPECT_FALSE(evaluate::choiceOf(QStringLiteral("photo")).areFacesKept);
    const evaluate::Choice choice = evaluate::choiceOf(QStringLiteral("gauss=7,sobel=2+faces"));
    EXPECT_TRUE(choice.areFacesKept);
    EXPECT_EQ(choice.settings.gauss, 7);
    EXPECT_EQ(choice.settings.sobel, 2);
    EXPECT_EQ(choice.settings.background, 0);
    EXPECT_THROW(evaluate::choiceOf(QStringLiteral("faces")), host::HostError);
}

TEST_F(Evaluation, tableBeginsWithTheCentreAndTheBestCrops)
{
    const QString table = evaluate::tableOf({ QStringLiteral("photo") }, { sample(), sample() });
    EXPECT_TRUE(table.startsWith(QStringLiteral("| | all | even | odd |\n"
                                                "|---|---:|---:|---:|\n"
                                                "| centre, 1:1 | 0.0 % | 0.0 % | 0.0 % |\n"
                                                "| best crops, 1:1 | 80.0 % | 80.0 % | 80.0 % |\n"
                                                "| photo, 1:1 | ")))
        << table.toStdString();
}

TEST_F(Evaluation, refusesPointsOfAnotherSize)
{
    const QString small
        = folder.save(QImage(60, 40, QImage::Format_RGB32), QStringLiteral("small.png"));
    EXPECT_THROW(Sample(photograph, small), host::HostError);
}
