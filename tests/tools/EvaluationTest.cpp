#include "evaluate/Evaluation.h"

#include "SampleFiles.h"
#include "host/HostError.h"
#include "host/SalienceSettings.h"

#include <gtest/gtest.h>

namespace {

using evaluate::Sample;

class Evaluation : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QString photograph = folder.save(samples::picture({ 120, 80 }), QStringLiteral("a.png"));

    // Eight points in the ten columns at the left, two in the ten at the right.
    Sample sample() const
    {
        QImage points(120, 80, QImage::Format_Grayscale8);
        points.fill(0);
        for (int i = 0; i < 8; ++i)
            points.scanLine(10 * i)[i] = 1;
        points.scanLine(5)[115] = 255;
        points.scanLine(75)[116] = 128;
        return Sample(photograph, folder.save(points, QStringLiteral("points.png")));
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

TEST_F(Evaluation, scoresTheCentreAsNothingAndTheBestWindowAsOne)
{
    EXPECT_DOUBLE_EQ((evaluate::Kept { 0.5, 0.5, 0.9 }.score()), 0);
    EXPECT_DOUBLE_EQ((evaluate::Kept { 0.9, 0.5, 0.9 }.score()), 1);
    EXPECT_DOUBLE_EQ((evaluate::Kept { 0.4, 0.5, 0.9 }.score()), -0.25);
    EXPECT_DOUBLE_EQ((evaluate::Kept { 0.9, 0.9, 0.9 }.score()), 0) << "nothing to gain";
}

TEST_F(Evaluation, comparesWhatIsChosenWithTheCentre)
{
    // Every method off: the map says nothing, and the centre is chosen.
    const evaluate::Kept kept = evaluate::evaluate({ sample() }, host::withoutMethods(), { 1, 1 });
    EXPECT_DOUBLE_EQ(kept.chosen, kept.centre);
    EXPECT_DOUBLE_EQ(kept.centre, 0);
    EXPECT_DOUBLE_EQ(kept.best, 0.8);
}

TEST_F(Evaluation, refusesPointsOfAnotherSize)
{
    const QString small
        = folder.save(QImage(60, 40, QImage::Format_RGB32), QStringLiteral("small.png"));
    EXPECT_THROW(Sample(photograph, small), host::HostError);
}
