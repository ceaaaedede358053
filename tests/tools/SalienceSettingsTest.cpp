#include "host/SalienceSettings.h"

#include "host/HostError.h"

#include <VXRegionOfInterest/VXAbstractROI.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <gtest/gtest.h>

namespace {

using host::HostError;
using host::SalienceSettings;

SalienceSettings preset(const char* name) { return SalienceSettings::preset(QLatin1String(name)); }

} // namespace

TEST(SalienceSettings, photoIsTheCentreAndHalfAsMuchSurroundContrast)
{
    VXSalienzMixer mixer { QSize() };
    preset("photo").configure(mixer);
    EXPECT_FALSE(mixer.isMethodEnabled(Sobel));
    EXPECT_FALSE(mixer.isMethodEnabled(Histogram));
    EXPECT_EQ(mixer.roiMethod(Gauss)->getWeight(), 20);
    EXPECT_EQ(mixer.roiMethod(Achanta)->getWeight(), 10);
}

TEST(SalienceSettings, libraryIsTheMixerAsItIsMade)
{
    const VXSalienzMixer untouched { QSize() };
    VXSalienzMixer mixer { QSize() };
    preset("library").configure(mixer);
    for (const VXSalienzMethod method : { Sobel, Gauss, Histogram, Achanta }) {
        EXPECT_EQ(mixer.isMethodEnabled(method), untouched.isMethodEnabled(method));
        EXPECT_EQ(mixer.roiMethod(method)->getWeight(), untouched.roiMethod(method)->getWeight());
    }
}

TEST(SalienceSettings, aWeightOfZeroSwitchesAMethodOff)
{
    SalienceSettings settings = preset("library");
    settings.setWeight(QStringLiteral("sobel=0"));
    settings.setWeight(QStringLiteral("achanta=-7"));
    VXSalienzMixer mixer { QSize() };
    settings.configure(mixer);
    EXPECT_FALSE(mixer.isMethodEnabled(Sobel));
    EXPECT_TRUE(mixer.isMethodEnabled(Gauss));
    EXPECT_EQ(mixer.roiMethod(Achanta)->getWeight(), -7);
}

TEST(SalienceSettings, tuneSetsEveryFieldOfTheHistogramMethod)
{
    SalienceSettings settings = preset("library");
    for (const char* const text : { "bins1=16", "bins2=8", "threshold=0.5", "columns=7", "rows=5",
             "min-width=0.75", "min-height=0.125" })
        settings.tune(QLatin1String(text));
    EXPECT_EQ(settings.histogram.bins1, 16);
    EXPECT_EQ(settings.histogram.bins2, 8);
    EXPECT_EQ(settings.histogram.threshold, 0.5);
    EXPECT_EQ(settings.histogram.columns, 7);
    EXPECT_EQ(settings.histogram.rows, 5);
    EXPECT_EQ(settings.histogram.minWidth, 0.75);
    EXPECT_EQ(settings.histogram.minHeight, 0.125);
}

TEST(SalienceSettings, refusesWhatItDoesNotKnow)
{
    SalienceSettings settings = preset("photo");
    EXPECT_THROW(preset("portrait"), HostError);
    for (const char* const text : { "", "sobel", "sobel=", "edges=1", "sobel=1001", "gauss=1.5" })
        EXPECT_THROW(settings.setWeight(QLatin1String(text)), HostError) << text;
    for (const char* const text : { "", "bins1", "bins1=", "bins1=1e9", "bins3=4", "threshold=x" })
        EXPECT_THROW(settings.tune(QLatin1String(text)), HostError) << text;
}
