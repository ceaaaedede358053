#include "host/crop/Constraints.h"

#include "host/HostError.h"
#include "vxroi/options/Areas.h"

#include <gtest/gtest.h>

namespace {

host::Area area(const char* text)
{
    return vxroi::parseArea(QLatin1String(text), QStringLiteral("--keep"));
}

} // namespace

TEST(Constraints, areasAreCutOffAtTheEdgesOfThePicture)
{
    const VXCropConstraints within = host::within({ 30, 20 },
        { { area("-5,-5,10,10") }, { area("25,15,90,90") }, QPointF(0.5, 0.5) }, QString());
    EXPECT_EQ(within.keep, QVector<QRect> { QRect(0, 0, 5, 5) });
    EXPECT_EQ(within.avoid, QVector<QRect> { QRect(25, 15, 5, 5) });
    EXPECT_EQ(within.focus, QPointF(0.5, 0.5));
}

TEST(Constraints, percentCountFromThePictureAndTouchWholePixels)
{
    EXPECT_EQ(area("25%,0,50%,100%").in({ 400, 300 }), QRect(100, 0, 200, 300));
    EXPECT_EQ(area("10,20,30,40").in({ 400, 300 }), QRect(10, 20, 30, 40));
    EXPECT_EQ(area("10,50%,30,40").in({ 400, 300 }), QRect(10, 150, 30, 40));
    // 3.33 to 6.66 touches the pixels 3 to 6.
    EXPECT_EQ(area("33.3%,33.3%,33.3%,33.3%").in({ 10, 10 }), QRect(3, 3, 4, 4));
    EXPECT_EQ(area("0,0,0.01%,0.01%").in({ 10, 10 }), QRect(0, 0, 1, 1));
    EXPECT_EQ(area("-10%,0,20%,1").in({ 100, 10 }), QRect(-10, 0, 20, 1));
}

TEST(Constraints, refusesWhatIsNoArea)
{
    for (const char* const text :
        { "", "1,2,3", "1,2,3,4,5", "1,2,0,4", "1,2,3,0%", "1,2,-3,4", "1.5,2,3,4", "%,1,2,3",
            "1,2,3,4\n", " 1,2,3,4", "1000%%,1,1,1", "1e2%,1,1,1", "1,2,9999999999,4" })
        EXPECT_THROW(area(text), host::HostError) << text;
}

TEST(Constraints, refusesAreasOutsideThePictureAndNamesItAndTheOption)
{
    try {
        host::within(
            { 30, 20 }, { { area("30,0,5,5") }, {}, std::nullopt }, QStringLiteral("a.png"));
        ADD_FAILURE() << "accepted it";
    } catch (const host::HostError& error) {
        EXPECT_EQ(std::string(error.what()).rfind("a.png: --keep 30,0,5,5 lies outside", 0), 0U)
            << error.what();
    }
}
