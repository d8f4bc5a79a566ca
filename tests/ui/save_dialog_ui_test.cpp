// Screens: 240x320 320x240 176x220

// The name of a new archive, asked for by the device's own dialog, and what an archiver has to say.

#include "platform/desktop/device_shell.h"
#include "tests/ui/archives_ui.h"
#include "tests/ui/layout.h"
#include "tests/ui/save_dialog.h"

namespace {

constexpr int wayUp = 0xa001; // the command of the dialog's button

class SaveDialogUi : public ArchivesUi {
  protected:
    void SetUp() override {
        ArchivesUi::SetUp();
        RemoveLibrary(L"getFiles.dll");
        device.File(L"\\Docs\\a.txt");
        device.Folder(L"\\To\\Inner");
    }

    Dialog Ask() {
        StartAndSelect(L"\\Docs", {L"a.txt"});
        return AskForArchive(program);
    }
    static std::wstring Command(const std::wstring& archive) {
        return L"UnZip 2048 a \"" + archive + L"\" \"\\Docs\\\" \"\\Docs\\a.txt\" ";
    }
};

TEST_F(SaveDialogUi, FitsTheScreenAndIsAnsweredBySoftKeys) {
    Dialog dialog = Ask();
    EXPECT_EQ(dialog.SoftKeys(), (Texts{L"Save", L"Cancel"}));
    ExpectGoodLayout(dialog);
    const RECT place = dialog.Place();
    EXPECT_EQ(place.right - place.left, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LT(place.bottom, GetSystemMetrics(SM_CYSCREEN));
    PressRightSoftKey();
    dialog.WaitUntilClosed();
    program.WaitUntilIdle();
    EXPECT_EQ(archiver->Calls(), Texts{});
    EXPECT_EQ(program.Folder(), L"\\Docs");
}

TEST_F(SaveDialogUi, GivesTheNameItsExtensionAndKeepsTheDevicesRoot) {
    Dialog dialog = Ask();
    SaveAs(program, dialog, L"\\To\\Inner\\new");
    EXPECT_EQ(archiver->Calls(), Texts{Command(L"\\To\\Inner\\new.zip")});
    EXPECT_FALSE(program.HasMessageBox());
    // Paths still lead to the device.
    Show(L"\\To\\Inner");
    program.WaitForNames({L"..", L"new.zip"});
}

TEST_F(SaveDialogUi, ShowsTheFoldersOnTheWayAndNoDrives) {
    Dialog dialog = Ask();
    EXPECT_FALSE(dialog.Item(cmb2).IsShown());
    const Control places = dialog.Item(FILE_DIALOG_PLACES);
    NameFieldOf(dialog).SetText(L"\\To\\Inner");
    PressLeftSoftKey();
    WaitFor("for the inner folder", [&] {
        return places.Entries() == Texts{L"\\", L"\\To", L"\\To\\Inner"};
    });
    EXPECT_EQ(places.SelectedEntry(), 2);
    ExpectGoodLayout(dialog);

    NameFieldOf(dialog).SetText(L"half typed");
    Control(places).PickEntry(1);
    WaitFor("for the outer folder", [&] { return places.Entries() == Texts{L"\\", L"\\To"}; });
    EXPECT_EQ(NameFieldOf(dialog).Text(), L"half typed");
    SaveAs(program, dialog, L"new");
    EXPECT_EQ(archiver->Calls(), Texts{Command(L"\\To\\new.zip")});
}

TEST_F(SaveDialogUi, NoWayLeadsAboveTheDevice) {
    Dialog dialog = Ask();
    const Control places = dialog.Item(FILE_DIALOG_PLACES);
    const HWND toolBar = FindWindowExW(dialog.Window(), nullptr, TOOLBARCLASSNAMEW, nullptr);
    const auto isWayUpEnabled = [&] { return SendMessageW(toolBar, TB_ISBUTTONENABLED, wayUp, 0) != 0; };
    NameFieldOf(dialog).SetText(L"\\To");
    PressLeftSoftKey();
    WaitFor("for the folder", [&] { return places.Entries() == Texts{L"\\", L"\\To"}; });
    EXPECT_TRUE(isWayUpEnabled());

    // As the button does, also where it is disabled: once to the root, once from it.
    for (int step = 0; step < 2; ++step) {
        dialog.Command(wayUp);
        WaitFor("for the root", [&] { return places.Entries() == Texts{L"\\"} && !isWayUpEnabled(); });
    }
    SaveAs(program, dialog, L"here");
    EXPECT_EQ(archiver->Calls(), Texts{Command(L"\\here.zip")});
}

TEST_F(SaveDialogUi, AnExtensionOfOnesOwnStays) {
    Dialog dialog = Ask();
    SaveAs(program, dialog, L"\\To\\new.bak");
    EXPECT_EQ(archiver->Calls(), Texts{Command(L"\\To\\new.bak")});
}

TEST_F(SaveDialogUi, AsksBeforeAFileIsReplaced) {
    device.File(L"\\To\\old.zip", "old");
    Dialog dialog = Ask();
    NameFieldOf(dialog).SetText(L"\\To\\old.zip");
    PressLeftSoftKey();
    program.WaitForMessageBox().Answer(IDNO);
    EXPECT_EQ(archiver->Calls(), Texts{});
    EXPECT_EQ(device.Content(L"\\To\\old.zip"), "old");
    PressLeftSoftKey();
    program.WaitForMessageBox().Answer(IDYES);
    dialog.WaitUntilClosed();
    program.WaitUntilIdle();
    EXPECT_EQ(archiver->Calls(), Texts{Command(L"\\To\\old.zip")});
}

TEST_F(SaveDialogUi, ALibraryWithoutItsDialogGivesWayToThePlatforms) {
    PutLibraryWithoutFunctions(L"getFiles.dll");
    Dialog dialog = Ask();
    SaveAs(program, dialog, L"here"); // it begins in the current folder then
    EXPECT_EQ(archiver->Calls(), Texts{Command(L"\\Docs\\here.zip")});
}

TEST_F(SaveDialogUi, AVeryLongMessageLeavesItsButtonOnTheScreen) {
    archiver->Answer(1, std::wstring(1024, L'w'));
    StartAndSelect(L"\\Docs", {L"a.txt"});
    program.PostCommand(IDM_FILE_EXTRACT_HERE);
    MessageBoxShown box = program.WaitForMessageBox();
    const HWND window = MessageBoxesOf(program.ProcessId()).at(0);
    RECT place{};
    GetWindowRect(window, &place);
    EXPECT_GE(place.top, 0);
    EXPECT_LT(place.bottom, GetSystemMetrics(SM_CYSCREEN));
    box.Answer(IDOK);
}

} // namespace
