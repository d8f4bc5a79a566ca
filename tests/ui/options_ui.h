#pragma once
// What the suites of the option pages begin with.

#include <algorithm>

#include "tests/support/ui_test.h"
#include "tests/ui/layout.h"

class OptionsUi : public UiTest {
  protected:
    /// Shows the first page.
    Dialog Open() {
        program.PostCommand(IDM_VIEW_OPTIONS);
        return program.WaitForDialog(L"Options");
    }
    Dialog OpenPage(int command, const std::wstring& title) {
        Dialog main = program.WaitForDialog(L"Options");
        main.Command(command);
        return program.WaitForDialog(title);
    }
    /// Ends a page so that it takes its controls over.
    static void Confirm(Dialog dialog) {
        dialog.Command(IDM_OPTIONS_OK);
        dialog.WaitUntilClosed();
    }
    /// Leaves a page, as the Back key and "Cancel" do.
    static void Leave(Dialog dialog) {
        dialog.Command(IDCANCEL);
        dialog.WaitUntilClosed();
    }
    /// Ends a page and the first one behind it, and waits for what comes of it.
    void ConfirmBoth(const Dialog& page) {
        Confirm(page);
        Confirm(program.WaitForDialog(L"Options"));
        program.WaitUntilIdle();
    }
    /// The numbers of those boxes that are marked.
    static std::vector<int> MarkedOf(const Dialog& dialog, const std::vector<int>& boxes) {
        std::vector<int> marked;
        for (const int box : boxes)
            if (dialog.Item(box).IsChecked())
                marked.push_back(box);
        return marked;
    }
    bool HasFocus(const Dialog& dialog, int control) const {
        return program.Focus() == dialog.Item(control).Window();
    }
};
