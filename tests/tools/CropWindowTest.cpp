#include "host/CropWindow.h"

#include "host/HostError.h"

#include <gtest/gtest.h>

TEST(CropWindow, areasAreCutOffAtTheEdgesOfThePicture)
{
    const VXCropConstraints within = host::within(
        { 30, 20 }, { { QRect(-5, -5, 10, 10) }, { QRect(25, 15, 90, 90) }, QPointF(0.5, 0.5) });
    EXPECT_EQ(within.keep, QVector<QRect> { QRect(0, 0, 5, 5) });
    EXPECT_EQ(within.avoid, QVector<QRect> { QRect(25, 15, 5, 5) });
    EXPECT_EQ(within.focus, QPointF(0.5, 0.5));
}

TEST(CropWindow, refusesAreasOutsideThePictureAndNamesTheOption)
{
    const QVector<QRect> outside { QRect(30, 0, 5, 5) };
    try {
        host::within({ 30, 20 }, { outside, {}, std::nullopt });
        ADD_FAILURE() << "accepted it";
    } catch (const host::HostError& error) {
        EXPECT_EQ(std::string(error.what()).rfind("--keep 30,0,5,5", 0), 0U) << error.what();
    }
    try {
        host::within({ 30, 20 }, { {}, outside, std::nullopt });
        ADD_FAILURE() << "accepted it";
    } catch (const host::HostError& error) {
        EXPECT_EQ(std::string(error.what()).rfind("--avoid 30,0,5,5", 0), 0U) << error.what();
    }
}
