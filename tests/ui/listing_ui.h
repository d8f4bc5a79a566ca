#pragma once
// What the suites of the listing begin with.

#include <string>

#include "tests/support/ui_test.h"

class ListingUi : public UiTest {
  protected:
    /// Starts the program in a folder and tells the names it shows.
    Texts NamesIn(const std::wstring& folder) {
        program.Start(L"\"" + folder + L"\"");
        return program.List().Names();
    }
    void ShowDetails() { device.SetOption(ListOption::ViewStyle, LVS_REPORT); }
    void GoUp() { program.Command(IDM_TOOLBAR_UP_FOLDER); }
};
