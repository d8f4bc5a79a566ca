#pragma once
// How much of the screen's height the device shell's bars take.

struct BarHeights {
    int titleStrip;
    int softKeys;
};

/// Each bar is three pixels higher than a menu. On the smallest phones, whose screens have 220 lines, the two
/// together leave the 185 lines that programs count on there, whatever a menu's height.
constexpr BarHeights BarHeightsOn(int screenHeight, int menuHeight) {
    constexpr BarHeights smallest{17, 18};
    return screenHeight == 220 ? smallest : BarHeights{menuHeight + 3, menuHeight + 3};
}
