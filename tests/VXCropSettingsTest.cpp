#include <VXCrop/VXCropSettings.h>

#include <VXRegionOfInterest/VXAbstractROI.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(VXCropSettings, photoIsTheBackgroundAlone)
{
    for (const VXCropSettings::Method& method : VXCropSettings::methods())
        EXPECT_EQ(
            VXCropSettings::photo().*method.weight != 0, std::string(method.name) == "background");
}

TEST(VXCropSettings, libraryIsTheMixerAsItIsMade)
{
    const VXSalienzMixer mixer { QSize() };
    int count = 0;
    for (const VXCropSettings::Method& method : VXCropSettings::methods()) {
        const int weight = VXCropSettings::library().*method.weight;
        if (!method.ofMixer) {
            EXPECT_EQ(weight, 0);
            continue;
        }
        EXPECT_EQ(weight, mixer.roiMethod(*method.ofMixer)->getWeight()) << method.name;
        EXPECT_TRUE(mixer.isMethodEnabled(*method.ofMixer));
        ++count;
    }
    EXPECT_EQ(count, mixer.gatherWeights().size());
}

TEST(VXCropSettings, everyMethodHasANameAndAWeightOfItsOwn)
{
    std::set<std::string> names;
    VXCropSettings settings;
    int next = 100;
    for (const VXCropSettings::Method& method : VXCropSettings::methods()) {
        names.insert(method.name);
        settings.*method.weight = next++;
        EXPECT_FALSE(std::string(method.finds).empty()) << method.name;
    }
    EXPECT_EQ(names.size(), 5U);
    EXPECT_EQ(settings.sobel + settings.gauss + settings.histogram + settings.achanta
            + settings.background,
        100 + 101 + 102 + 103 + 104);
}
