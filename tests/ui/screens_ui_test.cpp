// Screens: 240x320 320x240 176x220

// What is on each of the phone's screens after a start: nothing cut, nothing over something else.

#include "tests/support/soft_keys.h"
#include "tests/support/ui_test.h"

namespace {

class ScreensUi : public UiTest {
  protected:
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
};

TEST_F(ScreensUi, TheWindowLiesBetweenTheTitleAndTheSoftKeys) {
    program.Start();
    const RECT window = PlaceOf(program.Window());
    const RECT keys = PlaceOf(SoftKeyBarOf(program.Window()));
    const int bar = GetSystemMetrics(SM_CYMENU) + 3;
    EXPECT_EQ(window.left, 0);
    EXPECT_EQ(window.right, width);
    EXPECT_EQ(window.bottom, keys.top);
    EXPECT_EQ(keys.bottom, height);
    EXPECT_EQ(keys.right - keys.left, width);
    if (height == 220) {
        EXPECT_EQ(window.bottom - window.top, 185); // the small phone's shell leaves this, whatever its bars
    } else {
        EXPECT_EQ(window.top, bar);
        EXPECT_EQ(keys.bottom - keys.top, bar);
    }
    EXPECT_EQ(program.SoftKeys(), (Texts{L"Change View", L"Menu"}));
}

TEST_F(ScreensUi, TheListAndTheStatusBarFillTheWindow) {
    program.Start();
    const RECT window = PlaceOf(program.Window());
    const RECT list = PlaceOf(program.List().Window());
    const RECT status = PlaceOf(program.Status().Window());
    EXPECT_EQ(list.top, window.top);
    EXPECT_EQ(list.bottom, status.top);
    EXPECT_EQ(status.bottom, window.bottom);
    EXPECT_EQ(list.right - list.left, width);
    EXPECT_EQ(status.right - status.left, width);
    EXPECT_TRUE(program.List().InView(0));
}

TEST_F(ScreensUi, AFolderOpensAndTellsItself) {
    program.Start(L"\\My Documents");
    EXPECT_EQ(program.List().Names(),
              (Texts{L"..", L"Notes", L"Pictures", L"Shortcuts", L"Sounds", L"Web", L"Holiday", L"Welcome"}));
    EXPECT_EQ(program.Status().Texts().front(), L"7");
    EXPECT_EQ(program.Status().Texts().back(), L"My Documents");
}

} // namespace
