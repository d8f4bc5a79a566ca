#include "platform/desktop/bar_heights.h"

#include <gtest/gtest.h>

TEST(BarHeights, EachBarIsAMenuAndThreePixels) {
    for (int screenHeight : {320, 240, 480}) {
        EXPECT_EQ(BarHeightsOn(screenHeight, 19).titleStrip, 22) << screenHeight;
        EXPECT_EQ(BarHeightsOn(screenHeight, 19).softKeys, 22) << screenHeight;
    }
    EXPECT_EQ(BarHeightsOn(320, 24).titleStrip, 27);
}

TEST(BarHeights, TheSmallestScreenLeaves185LinesWhateverAMenusHeight) {
    for (int menuHeight : {10, 19, 40}) {
        BarHeights bars = BarHeightsOn(220, menuHeight);
        EXPECT_EQ(220 - bars.titleStrip - bars.softKeys, 185) << menuHeight;
        EXPECT_GE(bars.titleStrip, 17) << menuHeight;
        EXPECT_GE(bars.softKeys, 17) << menuHeight;
    }
}
