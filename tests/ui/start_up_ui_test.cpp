// Screens: 240x320 320x240 176x220

// Start, the command line, the single instance, and the end.

#include "tests/support/ui_test.h"

namespace {

class StartUpUi : public UiTest {};

TEST_F(StartUpUi, ShowsTheTopOfTheDevice) {
    program.Start();
    EXPECT_EQ(program.List().Names(),
              (Texts{L"My Documents", L"Network", L"Program Files", L"Temp", L"Windows"}));
    EXPECT_EQ(program.Status().Texts(), (Texts{L"5", L"0.00KB", L"My PocketPC"}));
    EXPECT_EQ(program.SoftKeys(), (Texts{L"Change View", L"Menu"}));
}

} // namespace
