#include "app/pane_layout.h"

#include <gtest/gtest.h>

namespace {

LayoutInput Phone() {
    LayoutInput input;
    input.width = 240;
    input.height = 276;
    input.treeWidth = 100;
    input.treeHeight = 120;
    return input;
}

LayoutInput WithAddressBar(LayoutInput input) {
    input.addressBarShown = true;
    input.addressBarHeight = 24;
    return input;
}

LayoutInput WithStatusBar(LayoutInput input) {
    input.statusBarShown = true;
    input.statusBarHeight = 20;
    return input;
}

LayoutInput Stacked(LayoutInput input) {
    input.treeShown = true;
    return input;
}

LayoutInput SideBySide(LayoutInput input) {
    input.treeShown = true;
    input.sideBySide = true;
    return input;
}

} // namespace

void PrintTo(const Place& place, std::ostream* out) {
    *out << "(" << place.x << ", " << place.y << ") " << place.width << " x " << place.height;
}

TEST(LayoutHeight, IsWhatTheTwoBarsLeave) {
    EXPECT_EQ(LayoutHeight(320, 19), 276);
    EXPECT_EQ(LayoutHeight(240, 19), 196);
}

TEST(LayoutHeight, IsFixedOnScreens220High) {
    EXPECT_EQ(LayoutHeight(220, 19), 185);
    EXPECT_EQ(LayoutHeight(220, 40), 185);
}

TEST(ArrangePanes, ListAloneFillsTheArea) {
    EXPECT_EQ(ArrangePanes(WithStatusBar(Phone())).list, (Place{0, 0, 240, 256}));
}

TEST(ArrangePanes, PutsTheStatusBarAtTheBottom) {
    EXPECT_EQ(ArrangePanes(WithStatusBar(Phone())).statusBar, (Place{0, 256, 240, 20}));
}

TEST(ArrangePanes, WithoutBarsThePanesAreOnePixelTaller) {
    EXPECT_EQ(ArrangePanes(Phone()).list, (Place{0, 0, 240, 277}));
    EXPECT_EQ(ArrangePanes(SideBySide(Phone())).tree.height, 277);
}

TEST(ArrangePanes, StackedLeavesAGapOfFour) {
    const PanePlaces places = ArrangePanes(Stacked(WithStatusBar(Phone())));
    EXPECT_EQ(places.tree, (Place{0, 0, 240, 120}));
    EXPECT_EQ(places.list, (Place{0, 124, 240, 132}));
}

TEST(ArrangePanes, SideBySideLeavesAGapOfFour) {
    const PanePlaces places = ArrangePanes(SideBySide(WithStatusBar(Phone())));
    EXPECT_EQ(places.tree, (Place{0, 0, 100, 256}));
    EXPECT_EQ(places.list, (Place{104, 0, 136, 256}));
}

TEST(ArrangePanes, PanesReachTwoPixelsUpUnderTheAddressBar) {
    const LayoutInput bars = WithAddressBar(WithStatusBar(Phone()));
    EXPECT_EQ(ArrangePanes(bars).addressBar, (Place{0, 0, 240, 24}));
    EXPECT_EQ(ArrangePanes(bars).list, (Place{0, 22, 240, 234}));
    EXPECT_EQ(ArrangePanes(SideBySide(bars)).tree, (Place{0, 22, 100, 234}));
    EXPECT_EQ(ArrangePanes(SideBySide(bars)).list, (Place{104, 22, 136, 234}));
}

TEST(ArrangePanes, StackedUnderTheAddressBarKeepsTheTreesHeight) {
    const PanePlaces places = ArrangePanes(Stacked(WithAddressBar(WithStatusBar(Phone()))));
    EXPECT_EQ(places.tree, (Place{0, 22, 240, 120}));
    EXPECT_EQ(places.list, (Place{0, 146, 240, 110}));
}

TEST(SplitExtent, FollowsThePointer) {
    EXPECT_EQ(SplitExtent(100, 130, 102, 100, {20, 220}), 128);
}

TEST(SplitExtent, RefusesRatherThanClampsAtTheEnds) {
    EXPECT_EQ(SplitExtent(100, 20, 102, 100, {20, 220}), 100);
    EXPECT_EQ(SplitExtent(100, 21, 102, 100, {20, 220}), 19);
    EXPECT_EQ(SplitExtent(100, 220, 102, 100, {20, 220}), 100);
    EXPECT_EQ(SplitExtent(100, 219, 102, 100, {20, 220}), 217);
}

TEST(ShowStateOf, ReadsTheSavedWord) {
    EXPECT_EQ(ShowStateOf(0), ShowState::Minimized);
    EXPECT_EQ(ShowStateOf(1), ShowState::Normal);
    EXPECT_EQ(ShowStateOf(2), ShowState::Maximized);
    EXPECT_EQ(ShowStateOf(90), ShowState::Minimized);
    EXPECT_EQ(ShowStateOf(91), ShowState::Normal);
    EXPECT_EQ(ShowStateOf(savedWindowState), ShowState::Maximized);
}
