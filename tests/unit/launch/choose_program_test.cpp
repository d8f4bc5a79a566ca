// The forms of the dialog "Choose Program" that none of the program's commands asks for: the choice is to
// hold for ever, or nothing is to be started.

#include "launch/choose_program.h"

#include <chrono>
#include <future>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "app/app_state.h"
#include "common/dialog_frame.h"
#include "resources/resource.h"
#include "tests/support/device.h"
#include "tests/support/dialog.h"
#include "tests/support/input.h"
#include "tests/support/list_view.h"
#include "tests/support/live_window.h"
#include "tests/support/soft_keys.h"
#include "tests/support/stand_in.h"
#include "tests/support/waiting.h"

namespace {

const std::wstring tool = L"\\Program Files\\Tool\\tool.exe";
const std::wstring extensionKey = L"HKCR\\.cpx";

ProgramChoice ChoiceFor(const wchar_t* name, bool forceAlways, bool launch) {
    ProgramChoice choice;
    EXPECT_TRUE(choice.folder.Assign(L"\\Temp\\c") && choice.name.Assign(name));
    choice.forceAlways = forceAlways;
    choice.launch = launch;
    return choice;
}

/// The dialog runs on a thread of its own and the test is the person in front of it.
class ChooseProgramForms : public testing::Test {
  protected:
    ChooseProgramForms() {
        PrepareDialogs(GetModuleHandleW(nullptr), nullptr);
        CopyTextTo(appState.settings.windowsPath, L"\\Windows");
        device_.WriteText(L"HKCR\\atoolfile", L"", L"A Tool");
        device_.WriteText(L"HKCR\\atoolfile\\Shell\\Open\\Command", L"", L"\"" + tool + L"\" \"%1\"");
        device_.Preserve(extensionKey);
        device_.File(L"\\Temp\\c\\a.cpx");
        tool_.emplace(tool);
    }
    ~ChooseProgramForms() override {
        // A test that failed may have left the dialog open.
        while (ended_.valid() && ended_.wait_for(std::chrono::milliseconds(100)) != std::future_status::ready)
            for (HWND dialog : DialogsOf(GetCurrentProcessId()))
                Dialog(dialog).Command(IDCANCEL);
        appState.settings.windowsPath = {};
    }

    void Open(bool forceAlways, bool launch) {
        ended_ = std::async(std::launch::async, ChooseProgram, ChoiceFor(L"a.cpx", forceAlways, launch));
        WaitFor("for the dialog", [&] {
            const std::vector<HWND> dialogs = DialogsOf(GetCurrentProcessId());
            dialog_ = Dialog(dialogs.empty() ? nullptr : dialogs.front());
            return dialog_.IsOpen() && SoftKeyBarOf(dialog_.Window()) && dialog_.SoftKeys().size() == 2;
        });
    }
    Control AlwaysBox() const { return dialog_.Item(IDC_ALWAYS_THIS_PROGRAM); }
    ListView Programs() const { return ListView(dialog_.Item(IDC_PROGRAM_LIST).Window()); }
    void PickTool() {
        Programs().SelectNothing();
        Programs().AddToSelection(L"A Tool");
    }
    void TapLeftSoftKey() const {
        const RECT bar = PlaceOf(SoftKeyBarOf(dialog_.Window()));
        Tap(MiddleOf({bar.left, bar.top, (bar.left + bar.right) / 2, bar.bottom}));
    }
    /// What the dialog ends with.
    int Result() {
        dialog_.WaitUntilClosed();
        return ended_.get();
    }
    std::wstring StoredClass() const {
        return device_.HasValue(extensionKey, L"") ? device_.TextValue(extensionKey, L"") : L"(none)";
    }
    Texts Starts() const { return tool_->Starts(); }

    Dialog dialog_{nullptr};

  private:
    Device device_;
    std::optional<StandIn> tool_;
    std::future<int> ended_;
};

} // namespace

TEST_F(ChooseProgramForms, ForEverIsMarkedAndStaysSo) {
    Open(true, true);
    EXPECT_EQ(dialog_.Title(), L"Choose Program (a.cpx)");
    EXPECT_EQ(dialog_.SoftKeys(), (Texts{L"Ok", L"Menu"}));
    EXPECT_TRUE(AlwaysBox().IsChecked());
    EXPECT_FALSE(AlwaysBox().IsEnabled());
    Tap(MiddleOf(AlwaysBox().Place()));
    PickTool();
    EXPECT_TRUE(AlwaysBox().IsChecked());
    TapLeftSoftKey();
    EXPECT_EQ(Result(), 1);
    EXPECT_EQ(StoredClass(), L"atoolfile");
    EXPECT_TRUE(Eventually([&] { return Starts() == Texts{L"\"\\Temp\\c\\a.cpx\""}; }));
}

TEST_F(ChooseProgramForms, AChoiceAloneIsStoredAndStartsNothing) {
    Open(true, false);
    PickTool();
    TapLeftSoftKey();
    EXPECT_EQ(Result(), 1);
    EXPECT_EQ(StoredClass(), L"atoolfile");
    EXPECT_TRUE(HoldsFor(500, [&] { return Starts().empty(); }));

    Open(true, true); // what is started at all is seen
    EXPECT_EQ(Programs().SelectedNames(), Texts{L"A Tool"}) << "its class is that of the extension by now";
    TapLeftSoftKey();
    EXPECT_EQ(Result(), 1);
    EXPECT_TRUE(Eventually([&] { return Starts().size() == 1; }));
}

TEST_F(ChooseProgramForms, AChoiceForOnceThatStartsNothingLeavesNoTrace) {
    Open(false, false);
    EXPECT_FALSE(AlwaysBox().IsChecked());
    EXPECT_TRUE(AlwaysBox().IsEnabled());
    PickTool();
    TapLeftSoftKey();
    EXPECT_EQ(Result(), 1);
    EXPECT_EQ(StoredClass(), L"(none)");
    EXPECT_TRUE(HoldsFor(500, [&] { return Starts().empty(); }));
}

TEST_F(ChooseProgramForms, CancelledForEverStoresAndStartsNothing) {
    Open(true, true);
    PickTool();
    dialog_.Command(IDCANCEL);
    EXPECT_EQ(Result(), 0);
    EXPECT_EQ(StoredClass(), L"(none)");
    EXPECT_EQ(Starts(), Texts{});
}

TEST_F(ChooseProgramForms, NothingSelectedStoresAndStartsNothing) {
    Open(true, true);
    Programs().SelectNothing();
    TapLeftSoftKey();
    EXPECT_EQ(Result(), 1);
    EXPECT_EQ(StoredClass(), L"(none)");
    EXPECT_EQ(Starts(), Texts{});
}

TEST_F(ChooseProgramForms, AFileWithoutAnExtensionIsNotAskedAbout) {
    for (const bool option : {false, true})
        EXPECT_EQ(ChooseProgram(ChoiceFor(L"plain", option, option)), 0);
}
