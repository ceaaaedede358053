#include "host/crop/SalienceSettings.h"

#include "host/HostError.h"
#include "vxroi/options/SalienceOptions.h"

#include <gtest/gtest.h>

namespace {

using host::HostError;

VXCropSettings preset(const char* name) { return vxroi::presetCalled(QLatin1String(name)); }

std::string textOf(const VXCropSettings& settings) { return host::textOf(settings).toStdString(); }

} // namespace

TEST(SalienceSettings, presetsHaveNames)
{
    EXPECT_EQ(
        vxroi::presetNames(), (QStringList { QStringLiteral("photo"), QStringLiteral("library") }));
    EXPECT_EQ(preset("photo").background, VXCropSettings::photo().background);
    EXPECT_EQ(preset("library").sobel, VXCropSettings::library().sobel);
    EXPECT_THROW(preset("portrait"), HostError);
}

TEST(SalienceSettings, setsTheWeightOfEveryMethod)
{
    VXCropSettings settings = host::withoutMethods();
    for (const char* const text :
        { "sobel=-1000", "gauss=2", "histogram=3", "achanta=-7", "background=1000" })
        vxroi::setWeight(settings, QLatin1String(text));
    EXPECT_EQ(settings.sobel, -1000);
    EXPECT_EQ(settings.gauss, 2);
    EXPECT_EQ(settings.histogram, 3);
    EXPECT_EQ(settings.achanta, -7);
    EXPECT_EQ(settings.background, 1000);
}

TEST(SalienceSettings, tuneSetsEveryFieldOfTheHistogramMethod)
{
    VXCropSettings settings = preset("library");
    for (const char* const text : { "bins1=16", "bins2=8", "threshold=0.5", "columns=7", "rows=5",
             "min-width=0.75", "min-height=0.125" })
        vxroi::tune(settings, QLatin1String(text));
    EXPECT_EQ(settings.tuning.bins1, 16);
    EXPECT_EQ(settings.tuning.bins2, 8);
    EXPECT_EQ(settings.tuning.threshold, 0.5);
    EXPECT_EQ(settings.tuning.columns, 7);
    EXPECT_EQ(settings.tuning.rows, 5);
    EXPECT_EQ(settings.tuning.minWidth, 0.75);
    EXPECT_EQ(settings.tuning.minHeight, 0.125);
}

TEST(SalienceSettings, refusesWhatItDoesNotKnow)
{
    VXCropSettings settings;
    for (const char* const text : { "", "sobel", "sobel=", "edges=1", "sobel=1001", "gauss=1.5" })
        EXPECT_THROW(vxroi::setWeight(settings, QLatin1String(text)), HostError) << text;
    for (const char* const text : { "", "bins1", "bins1=", "bins1=1e9", "bins3=4", "threshold=x" })
        EXPECT_THROW(vxroi::tune(settings, QLatin1String(text)), HostError) << text;
}

TEST(SalienceSettings, sameSettingsHaveTheSameText)
{
    EXPECT_EQ(textOf(preset("photo")), "photo");
    EXPECT_EQ(textOf(preset("library")), "library");
    VXCropSettings settings = host::withoutMethods();
    EXPECT_EQ(textOf(settings), "none");
    vxroi::setWeight(settings, QStringLiteral("background=20"));
    EXPECT_EQ(textOf(settings), "photo");
    vxroi::setWeight(settings, QStringLiteral("achanta=-3"));
    vxroi::tune(settings, QStringLiteral("min-width=0.25"));
    vxroi::tune(settings, QStringLiteral("rows=12"));
    vxroi::tune(settings, QStringLiteral("bins1=32"));
    EXPECT_EQ(textOf(settings), "achanta=-3 background=20 rows=12 min-width=0.25");
}
