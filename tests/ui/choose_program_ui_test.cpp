// Screens: 240x320 320x240 176x220

// Opening a file by a chosen program and with parameters, and what it can be sent to.

#include <map>

#include "tests/support/library_stand_in.h"
#include "tests/support/stand_in.h"
#include "tests/support/ui_test.h"
#include "tests/ui/layout.h"

namespace {

constexpr int fileNameField = 1148; // of the host's file dialog
const std::wstring tool = L"\\Program Files\\Tool\\tool.exe";

class ChooseProgramUi : public UiTest {
  protected:
    ChooseProgramUi() {
        device.Folder(L"\\Temp\\c");
        ShowExtensions();
    }

    /// Has the registry name a program for a class of files.
    void Class(const std::wstring& name, const std::wstring& description, const std::wstring& command) {
        device.WriteText(L"HKCR\\" + name, L"", description);
        device.WriteText(L"HKCR\\" + name + L"\\Shell\\Open\\Command", L"", command);
    }
    void Select(const std::wstring& name) {
        if (!program.Process())
            program.Start(L"\\Temp\\c");
        program.List().SelectNothing();
        program.List().AddToSelection(name);
        program.WaitForListFocus();
    }
    Dialog Choose(const std::wstring& name) {
        Select(name);
        program.PostCommand(IDM_OPEN_CHOOSE_PROGRAM);
        return program.WaitForDialog(L"Choose Program (" + name + L")");
    }
    static ListView Programs(const Dialog& dialog) {
        return ListView(dialog.Item(IDC_PROGRAM_LIST).Window());
    }
    static void Pick(const Dialog& dialog, const std::wstring& description) {
        Programs(dialog).SelectNothing();
        Programs(dialog).AddToSelection(description);
    }
    /// Browses for the stand-in of a tool in a dialog that is open, and waits for its class "tool".
    void BrowseForTool(Dialog& dialog) {
        dialog.Command(IDM_CHOOSE_PROGRAM_BROWSE);
        Dialog browser = program.WaitForDialog(L"Select Program");
        browser.Item(fileNameField).SetText(L"E:" + tool);
        browser.Command(IDOK);
        browser.WaitUntilClosed();
        EXPECT_TRUE(Eventually([&] { return Programs(dialog).SelectedNames() == Texts{L"tool"}; }));
    }
    static void Cancel(Dialog& dialog) {
        dialog.Command(IDCANCEL);
        dialog.WaitUntilClosed();
    }
    static void Confirm(Dialog& dialog) {
        dialog.Command(IDOK);
        dialog.WaitUntilClosed();
    }
    static void ExpectStarts(const StandIn& standIn, const Texts& starts) {
        EXPECT_TRUE(Eventually([&] { return standIn.Starts() == starts; }));
        EXPECT_EQ(standIn.Starts(), starts);
    }
};

} // namespace

TEST_F(ChooseProgramUi, ListsTheProgramsThatExist) {
    StandIn quoted(tool);
    StandIn ofSystem(L"\\Windows\\player.exe");
    Class(L"atoolfile", L"A Tool", L"\"" + tool + L"\" -o \"%1\"");
    Class(L"playerfile", L"A Player", L"player.exe %1");
    Class(L"gonefile", L"A Missing One", L"\\Windows\\gone.exe %1");
    device.WriteText(L"HKCR\\.cpx", L"", L"playerfile");
    device.File(L"\\Temp\\c\\song.cpx");
    Dialog dialog = Choose(L"song.cpx");
    EXPECT_TRUE(Programs(dialog).Has(L"A Tool"));
    EXPECT_TRUE(Programs(dialog).Has(L"A Player"));
    EXPECT_FALSE(Programs(dialog).Has(L"A Missing One"));
    EXPECT_EQ(Programs(dialog).SelectedNames(), Texts{L"A Player"});
    EXPECT_EQ(Programs(dialog).ColumnCount(), 1);
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"Choose Program");
    EXPECT_FALSE(dialog.Item(IDC_ALWAYS_THIS_PROGRAM).IsChecked());
    EXPECT_TRUE(dialog.Item(IDC_ALWAYS_THIS_PROGRAM).IsEnabled());
    EXPECT_EQ(dialog.SoftKeys(), (Texts{L"Ok", L"Menu"}));
    ExpectGoodLayout(dialog);
}

TEST_F(ChooseProgramUi, TheProgramChosenGetsTheFile) {
    StandIn standIn(tool);
    Class(L"atoolfile", L"A Tool", L"\"" + tool + L"\" -o \"%1\" %s%n");
    device.File(L"\\Temp\\c\\a 100%.cpx");
    Dialog dialog = Choose(L"a 100%.cpx");
    Pick(dialog, L"A Tool");
    Confirm(dialog);
    ExpectStarts(standIn, {L"-o \"\\Temp\\c\\a 100%.cpx\" %s%n"});
    EXPECT_FALSE(device.HasValue(L"HKCR\\.cpx", L""));
}

TEST_F(ChooseProgramUi, WithoutAMarkTheProgramStartsWithoutTheFile) {
    StandIn standIn(tool);
    Class(L"atoolfile", L"A Tool", L"\"" + tool + L"\" %s %n -x");
    device.File(L"\\Temp\\c\\a.cpx");
    Dialog dialog = Choose(L"a.cpx");
    Pick(dialog, L"A Tool");
    Confirm(dialog);
    ExpectStarts(standIn, {L"%s %n -x"});
}

TEST_F(ChooseProgramUi, AlwaysWritesTheClassOfTheExtension) {
    StandIn standIn(tool);
    Class(L"atoolfile", L"A Tool", L"\"" + tool + L"\" \"%1\"");
    device.Preserve(L"HKCR\\.cpx");
    device.File(L"\\Temp\\c\\a.b.cpx");
    Dialog dialog = Choose(L"a.b.cpx");
    Pick(dialog, L"A Tool");
    dialog.Mark(IDC_ALWAYS_THIS_PROGRAM);
    Confirm(dialog);
    ExpectStarts(standIn, {L"\"\\Temp\\c\\a.b.cpx\""});
    EXPECT_EQ(device.TextValue(L"HKCR\\.cpx", L""), L"atoolfile");
}

TEST_F(ChooseProgramUi, BrowsingAddsAProgramAndSelectsIt) {
    const StandIn standIn(tool);
    device.Preserve(L"HKCR\\tool");
    device.Preserve(L"HKCR\\.cpx");
    device.File(L"\\Temp\\c\\a.cpx");
    Dialog dialog = Choose(L"a.cpx");
    dialog.Command(IDM_CHOOSE_PROGRAM_BROWSE);
    Dialog cancelled = program.WaitForDialog(L"Select Program");
    cancelled.Command(IDCANCEL);
    cancelled.WaitUntilClosed();
    EXPECT_FALSE(Programs(dialog).Has(L"tool"));

    BrowseForTool(dialog);
    EXPECT_EQ(device.TextValue(L"HKCR\\tool", L""), L"tool");
    EXPECT_EQ(device.TextValue(L"HKCR\\tool\\Shell\\Open\\Command", L""), L"\"" + tool + L"\" \"%1\"");
    EXPECT_EQ(device.TextValue(L"HKCR\\tool\\DefaultIcon", L""), tool + L",0");

    dialog.Mark(IDC_ALWAYS_THIS_PROGRAM);
    Confirm(dialog);
    ExpectStarts(standIn, {L"\"\\Temp\\c\\a.cpx\""});
    EXPECT_EQ(device.TextValue(L"HKCR\\.cpx", L""), L"tool");
}

TEST_F(ChooseProgramUi, LookingMakesTheKeysThatThePhoneMakes) {
    device.WriteText(L"HKCR\\anyfile", L"", L"A class without a command");
    device.File(L"\\Temp\\c\\a.cpx");
    Dialog dialog = Choose(L"a.cpx");
    Cancel(dialog);
    EXPECT_TRUE(registry::KeyExists(L"HKCR\\anyfile\\Shell\\Open\\Command"));
}

TEST_F(ChooseProgramUi, LookingAndCancellingWriteNothingIntoAPersonsOwnRegistry) {
    ONLY_ON_THE_DESKTOP("a phone's registry is its own");
    const std::wstring ofDevices = L"HKCR\\{000214A0-0000-0000-C000-000000000046}";
    device.Preserve(ofDevices);
    registry::DeleteKey(ofDevices);
    device.Preserve(L"HKCR\\tool");
    StandIn standIn(tool);
    const StandIn player(L"\\Windows\\player.exe");
    Class(L"playerfile", L"A Player", L"player.exe %1");
    device.WriteText(L"HKCR\\anyfile", L"", L"A class without a command");
    device.File(L"\\Temp\\c\\a.cpx");
    const registry::Snapshot before(L"HKCR");

    Dialog looking = Choose(L"a.cpx");
    EXPECT_TRUE(Programs(looking).Has(L"A Player"));
    Cancel(looking);
    Dialog browsing = Choose(L"a.cpx");
    BrowseForTool(browsing);
    Cancel(browsing);
    EXPECT_TRUE(before == registry::Snapshot(L"HKCR"));

    Dialog choosing = Choose(L"a.cpx");
    BrowseForTool(choosing);
    Confirm(choosing);
    ExpectStarts(standIn, {L"\"\\Temp\\c\\a.cpx\""});
    EXPECT_EQ(device.TextValue(L"HKCR\\tool\\Shell\\Open\\Command", L""), L"\"" + tool + L"\" \"%1\"");
}

TEST_F(ChooseProgramUi, ADevicesOwnFileDialogIsTakenInstead) {
    const StandIn standIn(L"\\Windows\\own.exe");
    LibraryStandIn dialogs(L"getFiles.dll");
    dialogs.Answer(TRUE, std::wstring(L"\\Windows\\own.exe\0", 17));
    device.Preserve(L"HKCR\\own");
    device.File(L"\\Temp\\c\\a.cpx");
    Dialog dialog = Choose(L"a.cpx");
    dialog.Command(IDM_CHOOSE_PROGRAM_BROWSE);
    EXPECT_TRUE(Eventually([&] { return Programs(dialog).SelectedNames() == Texts{L"own"}; }));
    ASSERT_EQ(dialogs.Calls().size(), 1u);
    EXPECT_TRUE(dialogs.Calls().front().starts_with(L"title=Select Program filter=Executable (*.exe)|*.exe| "
                                                    L"folder=\\Windows extension=none file= room=260"))
        << Narrow(dialogs.Calls().front());
    EXPECT_EQ(device.TextValue(L"HKCR\\own\\Shell\\Open\\Command", L""), L"own.exe \"%1\"");
    EXPECT_EQ(device.TextValue(L"HKCR\\own\\DefaultIcon", L""), L"own.exe,0");
    Confirm(dialog);
    ExpectStarts(standIn, {L"\"\\Temp\\c\\a.cpx\""});
}

TEST_F(ChooseProgramUi, CancelAndNothingSelectedStartNothing) {
    StandIn standIn(tool);
    Class(L"atoolfile", L"A Tool", L"\"" + tool + L"\" \"%1\"");
    device.File(L"\\Temp\\c\\a.cpx");
    Dialog dialog = Choose(L"a.cpx");
    Pick(dialog, L"A Tool");
    Cancel(dialog);
    Dialog again = Choose(L"a.cpx");
    Programs(again).SelectNothing();
    Confirm(again);
    program.WaitUntilIdle();
    EXPECT_EQ(standIn.Starts(), Texts{});
}

TEST_F(ChooseProgramUi, FoldersAndFilesWithoutAnExtensionAreLeftAlone) {
    device.Folder(L"\\Temp\\c\\folder.cpx");
    device.File(L"\\Temp\\c\\plain");
    for (const wchar_t* name : {L"folder.cpx", L"plain"}) {
        Select(name);
        program.Command(IDM_OPEN_CHOOSE_PROGRAM);
        EXPECT_FALSE(program.HasDialog());
    }
}

TEST_F(ChooseProgramUi, ParametersAreAskedFor) {
    StandIn standIn(L"\\Temp\\c\\own tool.exe");
    Select(L"own tool.exe");
    program.PostCommand(IDM_OPEN_PARAMETERS);
    Dialog dialog = program.WaitForDialog(L"Specify parameter");
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"Specify parameter");
    EXPECT_EQ(dialog.Item(IDC_PARAMETERS_QUESTION).Text(), L"Input parameter to open file 'own tool.exe'.");
    EXPECT_EQ(dialog.SoftKeys(), (Texts{L"Ok", L"Cancel"}));
    ExpectGoodLayout(dialog);
    dialog.Item(IDC_PARAMETERS).SetText(L"-a \"%1 %s\" %n");
    Confirm(dialog);
    ExpectStarts(standIn, {L"-a \"%1 %s\" %n"});

    program.PostCommand(IDM_OPEN_PARAMETERS);
    Dialog cancelled = program.WaitForDialog(L"Specify parameter");
    cancelled.Command(IDCANCEL);
    cancelled.WaitUntilClosed();
    program.WaitUntilIdle();
    EXPECT_EQ(standIn.Starts().size(), 1u);
}

TEST_F(ChooseProgramUi, PreferredProgramsGetTheFile) {
    StandIn standIn(tool);
    device.File(L"\\Windows\\SendTo\\My Tool.lnk", "30#\"\\Program Files\\Tool\\tool.exe\" ");
    device.File(L"\\Windows\\SendTo\\readme.txt");
    device.File(L"\\Temp\\c\\a b.txt");
    Select(L"a b.txt");
    const Menu sendTo = program.SoftKeyMenu().Popup(L"Send To");
    EXPECT_EQ(sendTo.Texts(), (Texts{L"Outlook E-Mail", L"MMS", L"ZIP Archive...", L"Copy To...",
                                     L"Move To...", L"Send Shortcut To...", L"-", L"My Tool"}));
    EXPECT_TRUE(sendTo.IsEnabled(IDM_SENDTO_FIRST));
    program.Command(IDM_SENDTO_FIRST);
    ExpectStarts(standIn, {L"\"\\Temp\\c\\a b.txt\""});
    program.Command(IDM_SENDTO_FIRST + 1);
    program.List().SelectNothing();
    program.Command(IDM_SENDTO_FIRST);
    EXPECT_EQ(standIn.Starts().size(), 1u);
}

TEST_F(ChooseProgramUi, PreferredProgramsGetTheFileUnquotedWhenThatIsSet) {
    const StandIn standIn(L"\\Windows\\SendTo\\tool.exe");
    device.WriteNumber(settingsKey, L"CheckQAdd", 0);
    device.File(L"\\Temp\\c\\a b.txt");
    Select(L"a b.txt");
    program.Command(IDM_SENDTO_FIRST);
    ExpectStarts(standIn, {L"\\Temp\\c\\a b.txt"});
}

TEST_F(ChooseProgramUi, CtrlAndADigitStartThePreferredPrograms) {
    std::map<std::wstring, StandIn> standIns;
    for (int number = 0; number < 12; ++number) {
        const std::wstring name = L"tool" + std::to_wstring(number);
        standIns.try_emplace(name, L"\\Windows\\SendTo\\" + name + L".exe");
    }
    device.File(L"\\Temp\\c\\a.txt");
    Select(L"a.txt");
    const Menu sendTo = program.SoftKeyMenu().Popup(L"Send To");
    for (const wchar_t digit : std::wstring(L"1234567890")) {
        const UINT entry = digit == L'0' ? 9 : digit - L'1';
        const StandIn& standIn = standIns.at(sendTo.Item(IDM_SENDTO_FIRST + entry).text);
        EXPECT_EQ(standIn.Starts(), Texts{});
        PressKey(digit, Ctrl);
        ExpectStarts(standIn, {L"\"\\Temp\\c\\a.txt\""});
    }
    for (const UINT entry : {10u, 11u})
        EXPECT_EQ(standIns.at(sendTo.Item(IDM_SENDTO_FIRST + entry).text).Starts(), Texts{});
}

TEST_F(ChooseProgramUi, PreferredFoldersAreShownAndRefreshFindsThem) {
    device.File(L"\\Temp\\c\\a.txt");
    Select(L"a.txt");
    EXPECT_FALSE(program.SoftKeyMenu().Has(IDM_SENDTO_FIRST));
    device.File(L"\\Windows\\SendTo\\Documents.lnk", "13#\\My Documents");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_TRUE(program.SoftKeyMenu().Has(IDM_SENDTO_FIRST));
    Select(L"a.txt");
    program.Command(IDM_SENDTO_FIRST);
    program.WaitForFolder(L"\\My Documents");
}

TEST_F(ChooseProgramUi, MailAttachesTheFileAndEndsTheProgramOfBefore) {
    StandIn mail(L"\\Windows\\tmail.exe");
    mail.Stay();
    device.File(L"\\Temp\\c\\a b.txt");
    Select(L"a b.txt");
    program.Command(IDM_SENDTO_EMAIL);
    ExpectStarts(mail, {L"-attach \"\\Temp\\c\\a b.txt\"  -transport \"email\""});
    EXPECT_TRUE(Eventually([&] { return mail.Running() == 1; }));
    program.List().SelectNothing();
    program.Command(IDM_SENDTO_MMS);
    ExpectStarts(mail, {L"-attach \"\\Temp\\c\\a b.txt\"  -transport \"email\"",
                        L"-attach \"\\Temp\\c\\a b.txt\"  -transport \"mms\""});
    EXPECT_TRUE(Eventually([&] { return mail.Running() == 1; }));
    EXPECT_TRUE(HoldsFor(300, [&] { return mail.Running() == 1; }));
}

TEST_F(ChooseProgramUi, MailWithoutASelectionAttachesNothingAtFirst) {
    StandIn mail(L"\\Windows\\tmail.exe");
    program.Start(L"\\Temp\\c");
    program.List().SelectNothing();
    program.Command(IDM_SENDTO_EMAIL);
    ExpectStarts(mail, {L"-attach \"\"  -transport \"email\""});
}

TEST_F(ChooseProgramUi, BeamTakesTheNewerProgramAndThePathAsItIs) {
    StandIn older(L"\\Windows\\irsquirt.exe");
    device.File(L"\\Temp\\c\\a b.txt");
    Select(L"a b.txt");
    program.Command(IDM_SENDTO_IR);
    ExpectStarts(older, {L"\\Temp\\c\\a b.txt"});
    StandIn newer(L"\\Windows\\beam.exe");
    program.Command(IDM_SENDTO_IR);
    ExpectStarts(newer, {L"\\Temp\\c\\a b.txt"});
    program.Command(IDM_TOOLS_BEAM);
    ExpectStarts(newer, {L"\\Temp\\c\\a b.txt", L""});
    EXPECT_EQ(older.Starts().size(), 1u);
}

TEST_F(ChooseProgramUi, LinksStartAndMissingProgramsDoNothing) {
    device.File(L"\\Temp\\c\\a.txt");
    Select(L"a.txt");
    for (const UINT command : {IDM_TOOLS_PC_LINK, IDM_TOOLS_ACTIVESYNC, IDM_TOOLS_BEAM, IDM_SENDTO_IR,
                               IDM_SENDTO_EMAIL, IDM_SENDTO_MMS}) {
        program.Command(command);
        EXPECT_FALSE(program.HasMessageBox());
    }
    StandIn link(L"\\Windows\\repllog.exe");
    program.Command(IDM_TOOLS_PC_LINK);
    ExpectStarts(link, {L""});
}
