// Screens: 240x320

// The device ends at its root, whatever path the program is given and by whom.

#include <string>

#include "tests/support/stand_in.h"
#include "tests/support/ui_test.h"

namespace {

const std::wstring rootName = L"My PocketPC";
const std::wstring notFound = L"This folder or file could not be found. Check the path or file name.";

/// Folders that are there, seen from the host's side.
const std::wstring offTheDevice[] = {L"Z:\\",
                                     L"z:/tmp",
                                     L"C:\\windows",
                                     L"\\\\?\\unix\\tmp",
                                     L"\\\\.\\unix\\tmp",
                                     L"//?/unix/tmp",
                                     L"\\\\?\\C:\\",
                                     L"\\\\.\\Z:\\tmp",
                                     L"\\??\\Z:\\tmp",
                                     L"/\?\?/unix/tmp",
                                     L"\\\\?\\E:\\..",
                                     L"/tmp/",
                                     L"\\Temp\\..\\..\\..\\etc"};

class DeviceEdgeUi : public UiTest {
  protected:
    void SetUp() override {
        ShowExtensions();
        ShowAddressBar();
        device.Folder(L"\\Home\\Sub");
        device.File(L"\\Home\\note.txt");
    }

    void TypeAddress(const std::wstring& text) {
        PressKey(VK_F6);
        WaitFor("for the address bar's focus", [&] { return program.AddressBarHasFocus(); });
        program.AddressBar().SetText(text);
        PressKey(VK_RETURN);
        WaitFor("for the address to be gone to",
                [&] { return program.ListHasFocus() || program.HasMessageBox(); });
        program.WaitUntilIdle();
    }
    void ExpectNothingNew() {
        EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"note.txt"}));
        EXPECT_FALSE(program.HasMessageBox());
    }
    void Open(const std::wstring& name) {
        program.List().Select(name);
        program.Command(IDM_FILE_OPEN);
        program.WaitUntilIdle();
    }
};

} // namespace

TEST_F(DeviceEdgeUi, TheAddressBarLeadsNowhereElse) {
    program.Start(L"\\Home");
    for (const std::wstring& path : offTheDevice) {
        SCOPED_TRACE(Narrow(path));
        TypeAddress(path);
        ExpectMessage(notFound);
        ExpectNothingNew();
    }
}

TEST_F(DeviceEdgeUi, TheAddressBarTakesEverySpellingOfAFolder) {
    ONLY_ON_THE_DESKTOP("drives, which the phone has none of");
    program.Start();
    const std::pair<std::wstring, std::wstring> spellings[] = {
        {L"/Home/Sub", L"\\Home\\Sub"},     {L"\\Home\\Sub\\..", L"\\Home"},
        {L"E:\\Home\\Sub", L"\\Home\\Sub"}, {L"\\Home\\.\\\\Sub\\.", L"\\Home\\Sub"},
        {L"e:/home/", L"\\home\\"},         {L"\\..\\..\\Home\\Sub", L"\\Home\\Sub"},
        {L"\\Temp\\..", rootName},          {L"E:\\..", rootName}};
    for (const auto& [typed, shown] : spellings) {
        SCOPED_TRACE(Narrow(typed));
        TypeAddress(typed);
        EXPECT_EQ(program.Folder(), shown);
        EXPECT_FALSE(program.HasMessageBox());
    }
}

TEST_F(DeviceEdgeUi, AFolderThatIsHandedOverLiesOnTheDevice) {
    ONLY_ON_THE_DESKTOP("drives, which the phone has none of");
    program.Start(L"\\Home");
    for (const std::wstring& path : offTheDevice) {
        SCOPED_TRACE(Narrow(path));
        program.HandOverFolder(path);
        ExpectNothingNew();
    }
    program.HandOverFolder(L"/Home/Sub/..\\Sub");
    EXPECT_EQ(program.Folder(), L"\\Home\\Sub");
    EXPECT_EQ(Program::StartAgain(L"Z:\\tmp"), 0u);
    EXPECT_EQ(program.Folder(), L"\\Home\\Sub");
    EXPECT_EQ(Program::StartAgain(L"\"E:\\Temp\\..\\Home\""), 0u);
    EXPECT_EQ(program.Folder(), L"\\Home");
}

TEST_F(DeviceEdgeUi, TheProgramStartsOnTheDevice) {
    for (const std::wstring path :
         {L"Z:\\tmp", L"\\\\?\\unix\\tmp", L"/FOLDER:C:\\windows", L"/FOLDER:\\??\\Z:\\"}) {
        SCOPED_TRACE(Narrow(path));
        program.Start(path);
        EXPECT_EQ(program.Folder(), rootName);
        program.Close();
    }
    program.Start(L"/FOLDER:/Home/Sub/../Sub");
    EXPECT_EQ(program.Folder(), L"\\Home\\Sub");
}

TEST_F(DeviceEdgeUi, TheLastFolderOfTheRegistryLiesOnTheDevice) {
    device.SetOption(ListOption::RememberLastFolder, 1);
    for (const std::wstring& path : offTheDevice) {
        SCOPED_TRACE(Narrow(path));
        device.WriteText(settingsKey, L"LastFolder", path);
        program.Start();
        EXPECT_EQ(program.Folder(), rootName);
        EXPECT_TRUE(program.List().Has(L"Home"));
        program.Close();
    }
    device.WriteText(settingsKey, L"LastFolder", L"\\Temp\\..\\Home\\Sub\\.");
    program.Start();
    EXPECT_EQ(program.Folder(), L"\\Home\\Sub");
}

TEST_F(DeviceEdgeUi, ThePlacesOfTheRegistryLieOnTheDevice) {
    device.WriteText(settingsKey, L"FavoritesPath", L"Z:\\tmp");
    device.WriteText(settingsKey, L"StartMenuPath", L"C:\\windows");
    program.Start(L"\\Home");
    for (const UINT command : {IDM_FAVORITES_ORGANIZE, IDM_GOTO_START_MENU}) {
        program.PostCommand(command);
        ExpectMessage(notFound);
        ExpectNothingNew();
    }
    program.List().Select(L"note.txt");
    program.Command(IDM_FAVORITES_ADD);
    RunOnHost("test ! -e '/tmp/Shortcut to note.txt.lnk'");
}

TEST_F(DeviceEdgeUi, AShortcutLeadsNowhereElse) {
    device.File(L"\\Links\\drive.lnk", "3#Z:\\");
    device.File(L"\\Links\\host.lnk", "17#\"\\\\?\\unix\\tmp\" -x");
    device.File(L"\\Links\\up.lnk", "19#\"\\Temp\\..\\Home\\Sub\"");
    const StandIn tool(L"C:\\windows\\temp\\edge_tool.exe");
    device.File(L"\\Links\\tool.lnk", "29#C:\\windows\\temp\\edge_tool.exe");
    device.File(L"\\Windows\\SendTo\\away.lnk", "29#C:\\windows\\temp\\edge_tool.exe");
    program.Start(L"\\Links");
    for (const wchar_t* name : {L"drive.lnk", L"host.lnk", L"tool.lnk"}) {
        Open(name);
        EXPECT_EQ(program.Folder(), L"\\Links");
        EXPECT_FALSE(program.HasMessageBox());
    }
    program.Command(IDM_SENDTO_FIRST);
    Open(L"up.lnk");
    EXPECT_EQ(program.Folder(), L"\\Home\\Sub");
    EXPECT_TRUE(HoldsFor(500, [&] { return tool.Starts().empty(); }));
    RunOnHost("rm -f \"$WINEPREFIX\"/drive_c/windows/temp/edge_tool.exe*");
}

TEST_F(DeviceEdgeUi, AProgramThatTheRegistryNamesMayLieOnTheHostsSystemDrive) {
    ONLY_ON_THE_DESKTOP("drives, which the phone has none of");
    const StandIn tool(L"C:\\windows\\temp\\edge_tool.exe");
    device.WriteText(L"HKCR\\edgetool", L"", L"Edge tool");
    device.WriteText(L"HKCR\\edgetool\\Shell\\Open\\Command", L"",
                     L"C:\\windows\\temp\\edge_tool.exe \"%1\"");
    device.WriteText(L"HKCR\\.edge", L"", L"edgetool");
    device.File(L"\\Home\\a.edge");
    program.Start(L"\\Home");
    Open(L"a.edge");
    EXPECT_TRUE(Eventually([&] { return tool.Starts().size() == 1; }));
    program.List().Select(L"note.txt");
    program.PostCommand(IDM_OPEN_CHOOSE_PROGRAM);
    Dialog dialog = program.WaitForDialog(L"Choose Program (note.txt)");
    ListView(dialog.Item(IDC_PROGRAM_LIST).Window()).SelectNothing();
    ListView(dialog.Item(IDC_PROGRAM_LIST).Window()).AddToSelection(L"Edge tool");
    dialog.Command(IDOK);
    dialog.WaitUntilClosed();
    EXPECT_TRUE(Eventually([&] { return tool.Starts().size() == 2; }));
    RunOnHost("rm -f \"$WINEPREFIX\"/drive_c/windows/temp/edge_tool.exe*");
}

TEST_F(DeviceEdgeUi, ASearchStaysOnTheDevice) {
    program.Start(L"\\Home");
    for (const wchar_t* place : {L"Z:\\", L"C:\\windows", L"\\\\?\\unix\\"}) {
        program.Search(L"passwd", place);
        EXPECT_EQ(program.List().Names(), Texts{}) << Narrow(place);
    }
    program.Search(L"note.txt", L"/Temp/../Home/");
    EXPECT_EQ(program.List().Names(), Texts{L"note.txt"});
    program.Command(IDM_EDIT_SELECT_ALL);
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\Home\\note.txt");
}
