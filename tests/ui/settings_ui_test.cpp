// Screens: 240x320 320x240

// The registry values: what they are by default, read at the start, written on close and only then.

#include <limits>
#include <map>

#include "tests/support/ui_test.h"

namespace {

using Values = std::map<std::wstring, std::wstring>;

/// What a program without stored settings writes into the settings key on this screen.
Values DefaultSettings() {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = (GetSystemMetrics(SM_CYSCREEN) - 4 * GetSystemMetrics(SM_CYMENU)) / 2;
    const std::wstring column = L" " + std::to_wstring(width / 2);
    return {
        {L"TreeViewWidth", L"dword " + std::to_wstring(width)},
        {L"TreeViewHeight", L"dword " + std::to_wstring(height)},
        {L"ShowStatusWnd", L"dword 1"},
        {L"ShowFolder", L"dword 0"},
        {L"ViewSide", L"dword 0"},
        {L"DragDrop", L"dword 1"},
        {L"CheckQAdd", L"dword 1"},
        {L"OverLapped", L"dword 0"},
        {L"ContextMenu", L"dword 0"},
        {L"FontChange", L"dword 0"},
        {L"FontSize", L"dword 12"},
        {L"FontName", L"text \"\""},
        {L"FavoritesPath", L"text \"\\Windows\\Favorites\""},
        {L"DesktopPath", L"text \"\\Windows\\Desktop\""},
        {L"StartMenuPath", L"text \"\\Windows\\Start Menu\""},
        {L"MyDocumentPath", L"text \"\\My Documents\""},
        {L"NetworkPath", L"text \"\\Network\""},
        {L"SendAppPath", L"text \"\\Windows\\SendTo\""},
        {L"ListView", L"words 0 1 0 0 1 0 0" + column + column + column + column + L" 0 0 1 1 0 1 2 0 0 0 0"},
        {L"FileImageList", L"words 0 1 1"},
        {L"OpenPthInfoCount", L"words 0"},
        {L"LastFolder", L"text \"\""},
        {L"CompressFolder", L"text \"\\Temp\""},
        {L"TimeStump", L"words 0"},
        {L"HideFolder", L"words 0"},
        {L"NoExtShortcut", L"words 1"},
    };
}

class SettingsUi : public UiTest {
  protected:
    /// Starts the program, closes it and tells what it has stored under this name.
    std::wstring Kept(const std::wstring& name) {
        StartAndClose();
        return device.Value(settingsKey, name).Description();
    }
    void StartAndClose() {
        program.Start();
        program.Close();
    }
    void WriteBytes(const std::wstring& name, std::size_t size, unsigned char filler) {
        const std::vector<unsigned char> bytes(size, filler);
        device.Write(settingsKey, name, RegistryValue::Binary(bytes.data(), bytes.size()));
    }
    void WriteRecent(int number, const std::wstring& text) {
        device.WriteText(recentKey, L"Recent" + std::to_wstring(number), text);
    }
};

// --- Defaults ---

TEST_F(SettingsUi, AnEmptyRegistryGivesTheDefaults) {
    StartAndClose();
    EXPECT_EQ(registry::ValuesOf(settingsKey), DefaultSettings());
    EXPECT_EQ(registry::ValuesOf(rebarKey), (Values{{L"CmdBands", L"words 0 0"}}));
    EXPECT_EQ(registry::ValuesOf(recentKey), (Values{}));
    EXPECT_EQ(registry::ValueNamesOf(productKey), (Texts{L"Path"}));
}

TEST_F(SettingsUi, ThePathOfTheProgramFillsItsWholeBuffer) {
    device.WriteText(productKey, L"Path", L"\\Elsewhere\\Other.exe");
    program.Start();
    EXPECT_EQ(device.Value(productKey, L"Path").Description(),
              L"text \"E:\\Program Files\\Tarvik File Manager\\TarvikFileManager.exe\" in 520 bytes");
}

// --- Read at the start, written on close ---

TEST_F(SettingsUi, EveryValueIsReadAndWrittenBackWithItsType) {
    Values expected;
    const auto number = [&](const wchar_t* name, std::uint32_t value) {
        device.WriteNumber(settingsKey, name, value);
        expected[name] = L"dword " + std::to_wstring(value);
    };
    const auto text = [&](const wchar_t* name, const std::wstring& value) {
        device.WriteText(settingsKey, name, value);
        expected[name] = L"text \"" + value + L"\"";
    };
    const auto words = [&](const wchar_t* name, const std::vector<std::uint32_t>& value) {
        device.WriteWords(settingsKey, name, value);
        expected[name] = device.Value(settingsKey, name).Description();
    };
    number(L"TreeViewWidth", 77);
    number(L"TreeViewHeight", 66);
    number(L"ShowStatusWnd", 0);
    number(L"ShowFolder", 1);
    number(L"ViewSide", 2);
    number(L"DragDrop", 0);
    number(L"CheckQAdd", 0);
    number(L"OverLapped", 1);
    number(L"ContextMenu", 1);
    number(L"FontChange", 1);
    number(L"FontSize", 9);
    text(L"FontName", L"Tahoma");
    text(L"FavoritesPath", L"\\A\\Favorites");
    text(L"DesktopPath", L"\\A\\Desktop");
    text(L"StartMenuPath", L"\\A\\Menu");
    text(L"MyDocumentPath", L"\\A\\Documents");
    text(L"NetworkPath", L"\\A\\Net");
    text(L"SendAppPath", L"\\A\\SendTo");
    words(L"ListView", {2, 0, 3, 0, 0, 1, 1, 11, 22, 33, 44, 1, 1, 0, 0, 1, 0, 1, 1, 1, 1, 1});
    words(L"FileImageList", {1, 0, 0});
    words(L"OpenPthInfoCount", {0});
    text(L"LastFolder", L"\\Temp"); // kept: it is to be remembered, and it is there
    text(L"CompressFolder", L"\\Extracted");
    words(L"TimeStump", {3});
    words(L"HideFolder", {1});
    words(L"NoExtShortcut", {0});
    StartAndClose();
    EXPECT_EQ(registry::ValuesOf(settingsKey), expected);
}

TEST_F(SettingsUi, ChangesAreWrittenOnCloseAndNotBefore) {
    program.Start(L"\\Temp");
    program.Command(IDM_VIEW_STATUS_BAR);
    program.Command(IDM_ARRANGE_SIZE);
    EXPECT_EQ(registry::ValuesOf(settingsKey), (Values{}));
    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"ShowStatusWnd"), 0u);
    EXPECT_EQ(device.StoredOption(ListOption::SortKey), 2u);
    EXPECT_EQ(device.TextValue(settingsKey, L"LastFolder"), L"\\Temp");
}

TEST_F(SettingsUi, AKilledProgramKeepsNothing) {
    program.Start();
    program.Command(IDM_VIEW_STATUS_BAR);
    program.Command(IDM_VIEW_ADDRESS_BAR);
    program.Kill();
    EXPECT_EQ(registry::ValuesOf(settingsKey), (Values{}));
    EXPECT_EQ(registry::ValuesOf(rebarKey), (Values{}));
    program.Start();
    EXPECT_TRUE(program.Status().IsShown());
    EXPECT_FALSE(program.AddressBarIsShown());
}

TEST_F(SettingsUi, WhatOthersWriteMeanwhileIsOverwrittenOnClose) {
    program.Start();
    device.WriteNumber(settingsKey, L"FontSize", 20);
    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontSize"), 12u);
}

TEST_F(SettingsUi, ValuesOfOthersInItsKeysAreLeftAlone) {
    device.WriteText(settingsKey, L"Note", L"mine");
    StartAndClose();
    EXPECT_EQ(device.TextValue(settingsKey, L"Note"), L"mine");
}

TEST_F(SettingsUi, WhatTheStoredValuesMeanIsOnTheScreen) {
    device.WriteNumber(settingsKey, L"ShowStatusWnd", 0);
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    device.WriteNumber(settingsKey, L"ViewSide", 1);
    device.WriteNumber(settingsKey, L"TreeViewWidth", 90);
    program.Start();
    EXPECT_FALSE(program.Status().IsShown());
    ASSERT_TRUE(program.TreeIsShown());
    const RECT tree = PlaceOf(program.Tree().Window());
    EXPECT_EQ(tree.right - tree.left, 90);
    EXPECT_EQ(PlaceOf(program.List().Window()).left, 94);
}

// --- Values of a wrong size or type ---

TEST_F(SettingsUi, AListRecordOfAnotherSizeIsIgnoredWhole) {
    const std::wstring defaults = DefaultSettings()[L"ListView"];
    for (const std::size_t size : {0, 4, 84, 87, 92, 520, 5000}) {
        WriteBytes(L"ListView", size, 1);
        EXPECT_EQ(Kept(L"ListView"), defaults) << size << " bytes";
    }
}

TEST_F(SettingsUi, AListRecordOfHostileNumbersDoesNoHarm) {
    WriteBytes(L"ListView", 88, 0xFF);
    program.Start(L"\\My Documents");
    EXPECT_TRUE(program.List().Has(L".."));
    program.Close();
    EXPECT_EQ(program.ExitCode(), 0u);
}

TEST_F(SettingsUi, AShortNumberReplacesOnlyTheLowBytes) {
    WriteBytes(L"FontSize", 1, 9);
    WriteBytes(L"TimeStump", 2, 1);
    WriteBytes(L"ViewSide", 0, 0);
    StartAndClose();
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontSize"), 9u);
    EXPECT_EQ(device.NumberValue(settingsKey, L"TimeStump"), 0x0101u);
    EXPECT_EQ(device.NumberValue(settingsKey, L"ViewSide"), 0u);
}

TEST_F(SettingsUi, ALongNumberIsCutToItsField) {
    for (const wchar_t* name : {L"TreeViewWidth", L"TreeViewHeight", L"ShowStatusWnd", L"ShowFolder",
                                L"DragDrop", L"CheckQAdd", L"ContextMenu", L"FontChange", L"FontSize"})
        WriteBytes(name, 520, 0x01);
    for (const wchar_t* name : {L"TimeStump", L"NoExtShortcut", L"OpenPthInfoCount"})
        WriteBytes(name, 520, 0x01);
    WriteBytes(L"FileImageList", 520, 0x01);
    StartAndClose();
    for (const wchar_t* name : {L"TreeViewWidth", L"TreeViewHeight", L"DragDrop", L"CheckQAdd",
                                L"ContextMenu", L"FontSize", L"TimeStump", L"NoExtShortcut"})
        EXPECT_EQ(device.Value(settingsKey, name).AsWords(), (std::vector<std::uint32_t>{0x01010101}))
            << Narrow(name);
    EXPECT_EQ(device.Value(settingsKey, L"FileImageList").AsWords(),
              (std::vector<std::uint32_t>{0x01010101, 0x01010101, 0x01010101}));
    EXPECT_EQ(device.TextValue(settingsKey, L"SendAppPath"), L"\\Windows\\SendTo") << "a field's neighbour";
}

TEST_F(SettingsUi, AShortIconRecordReplacesItsBeginning) {
    device.WriteWords(settingsKey, L"FileImageList", {1});
    EXPECT_EQ(Kept(L"FileImageList"), L"words 1 1 1");
}

TEST_F(SettingsUi, ANumberOfAnyTypeIsTaken) {
    const std::uint32_t size = 18;
    device.Write(settingsKey, L"FontSize", RegistryValue::Binary(&size, sizeof(size)));
    device.WriteText(settingsKey, L"ContextMenu", L"A"); // 'A' and its zero: four bytes
    StartAndClose();
    EXPECT_EQ(device.Value(settingsKey, L"FontSize").Description(), L"dword 18");
    EXPECT_EQ(device.Value(settingsKey, L"ContextMenu").Description(), L"dword 65");
}

TEST_F(SettingsUi, ALongTextIsCutToItsField) {
    const std::wstring longest(259, L'x');
    for (const wchar_t* name : {L"FavoritesPath", L"DesktopPath", L"StartMenuPath", L"MyDocumentPath",
                                L"NetworkPath", L"SendAppPath", L"CompressFolder", L"LastFolder"})
        device.Write(settingsKey, name, RegistryValue::Binary(longest.data(), 259 * sizeof(wchar_t)));
    device.WriteText(settingsKey, L"FontName", std::wstring(200, L'f'));
    StartAndClose();
    EXPECT_EQ(device.TextValue(settingsKey, L"FontName"), std::wstring(127, L'f'));
    for (const wchar_t* name : {L"FavoritesPath", L"DesktopPath", L"StartMenuPath", L"MyDocumentPath",
                                L"NetworkPath", L"SendAppPath", L"CompressFolder"})
        EXPECT_EQ(device.TextValue(settingsKey, name), longest) << Narrow(name);
}

TEST_F(SettingsUi, ATextWithoutItsZeroIsCutSoThatItHasOne) {
    const std::wstring full(260, L'x');
    device.Write(settingsKey, L"SendAppPath", RegistryValue::Binary(full.data(), 520));
    StartAndClose();
    EXPECT_EQ(device.TextValue(settingsKey, L"SendAppPath"), std::wstring(259, L'x'));
    EXPECT_EQ(device.TextValue(settingsKey, L"NetworkPath"), L"\\Network") << "a field's neighbour";
}

TEST_F(SettingsUi, AValueLargerThanAnyFieldCountsAsMissing) {
    for (const auto& [name, value] : DefaultSettings())
        WriteBytes(name, 100'000, 'x');
    StartAndClose();
    const Values defaults = DefaultSettings();
    const Values kept = registry::ValuesOf(settingsKey);
    for (const auto& [name, value] : defaults)
        EXPECT_EQ(kept.at(name), value) << Narrow(name);
}

TEST_F(SettingsUi, AnOddNumberOfBytesIsNoHarmToAText) {
    WriteBytes(L"CompressFolder", 5, 'x');
    WriteBytes(L"FontName", 1, 'x');
    StartAndClose();
    EXPECT_EQ(device.TextValue(settingsKey, L"CompressFolder"), std::wstring(2, L'\x7878'));
    EXPECT_EQ(device.TextValue(settingsKey, L"FontName"), L"");
}

TEST_F(SettingsUi, HostileSizesOfThePanesDoNoHarm) {
    for (const std::uint32_t size : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0u}) {
        device.WriteNumber(settingsKey, L"TreeViewWidth", size);
        device.WriteNumber(settingsKey, L"TreeViewHeight", size);
        device.WriteNumber(settingsKey, L"ShowFolder", 1);
        device.WriteNumber(settingsKey, L"FontChange", 1);
        device.WriteNumber(settingsKey, L"FontSize", size);
        program.Start();
        program.Command(IDM_VIEW_SIDE);
        program.Close();
        EXPECT_EQ(program.ExitCode(), 0u) << size;
    }
}

TEST_F(SettingsUi, AnEmptyDocumentsPathIsTakenAsEmpty) {
    device.WriteText(settingsKey, L"MyDocumentPath", L"");
    program.Start();
    EXPECT_TRUE(program.List().Has(L"My Documents"));
    program.Command(IDM_GOTO_MY_DOCUMENTS);
    EXPECT_EQ(program.Folder(), L"My PocketPC");
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"MyDocumentPath"), L"");
}

// --- Column widths, remembered paths ---

TEST_F(SettingsUi, ColumnWidthsAreReadBackInTheDetailsView) {
    device.SetOption(ListOption::ViewStyle, LVS_REPORT);
    program.Start();
    for (int column = 0; column < 4; ++column)
        program.List().SetColumnWidth(column, 50 + column);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::NameWidth), 50u);
    EXPECT_EQ(device.StoredOption(ListOption::SizeWidth), 51u);
    EXPECT_EQ(device.StoredOption(ListOption::TypeWidth), 52u);
    EXPECT_EQ(device.StoredOption(ListOption::ModifiedWidth), 53u);
}

TEST_F(SettingsUi, ColumnWidthsStayInTheOtherViews) {
    device.SetOption(ListOption::ViewStyle, LVS_LIST);
    device.SetOption(ListOption::NameWidth, 61);
    program.Start();
    program.List().SetColumnWidth(0, 99);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::NameWidth), 61u);
}

TEST_F(SettingsUi, RememberedPathsStayInTheRegistryOnly) {
    device.WriteWords(settingsKey, L"OpenPthInfoCount", {2});
    device.WriteText(settingsKey, L"OpenPthInfo0", L"\\Temp");
    device.WriteText(settingsKey, L"OpenPthInfo1", L"\\Windows");
    StartAndClose();
    EXPECT_EQ(device.Value(settingsKey, L"OpenPthInfoCount").Description(), L"words 0");
    EXPECT_EQ(device.TextValue(settingsKey, L"OpenPthInfo0"), L"\\Temp");
    EXPECT_EQ(device.TextValue(settingsKey, L"OpenPthInfo1"), L"\\Windows");
}

TEST_F(SettingsUi, ARidiculousCountOfRememberedPathsDoesNoHarm) {
    device.WriteWords(settingsKey, L"OpenPthInfoCount", {std::numeric_limits<std::uint32_t>::max()});
    StartAndClose();
    EXPECT_EQ(program.ExitCode(), 0u);
}

// --- The command bar ---

TEST_F(SettingsUi, TheAddressBarComesBackAndTheToolBarNever) {
    device.WriteWords(rebarKey, L"CmdBands", {1, 1});
    program.Start();
    EXPECT_TRUE(program.AddressBarIsShown());
    program.Close();
    EXPECT_EQ(device.Value(rebarKey, L"CmdBands").Description(), L"words 0 1");
}

TEST_F(SettingsUi, CommandBandsOfAnotherSizeAreTakenAsFarAsTheyGo) {
    device.WriteWords(rebarKey, L"CmdBands", {0});
    StartAndClose();
    EXPECT_EQ(device.Value(rebarKey, L"CmdBands").Description(), L"words 0 0");
    device.WriteWords(rebarKey, L"CmdBands", {0, 1, 7, 7});
    StartAndClose();
    EXPECT_EQ(device.Value(rebarKey, L"CmdBands").Description(), L"words 0 1");
}

TEST_F(SettingsUi, RecentAddressesComeBackInTheirOrder) {
    for (int number = 1; number <= 8; ++number)
        WriteRecent(number, L"\\Folder " + std::to_wstring(number));
    WriteRecent(3, L"");
    WriteRecent(9, L"\\Folder 9");
    program.Start();
    EXPECT_EQ(program.AddressBar().Entries(),
              (Texts{L"\\Folder 1", L"\\Folder 2", L"\\Folder 4", L"\\Folder 5", L"\\Folder 6", L"\\Folder 7",
                     L"\\Folder 8"}));
}

TEST_F(SettingsUi, NewAddressesGoAboveTheOldOnesThatStayedInTheRegistry) {
    ShowAddressBar();
    program.Start();
    program.GoByAddressBar(L"\\Temp");
    program.GoByAddressBar(L"\\Windows");
    program.GoByAddressBar(L"\\My Documents");
    for (int number = 1; number <= 8; ++number)
        WriteRecent(number, L"\\Old " + std::to_wstring(number));
    program.Close();
    EXPECT_EQ(device.TextValue(recentKey, L"Recent1"), L"\\My Documents");
    EXPECT_EQ(device.TextValue(recentKey, L"Recent4"), L"\\Old 4");
    program.Start();
    EXPECT_EQ(program.AddressBar().Entries(), (Texts{L"\\My Documents", L"\\Windows", L"\\Temp", L"\\Old 4",
                                                     L"\\Old 5", L"\\Old 6", L"\\Old 7", L"\\Old 8"}));
}

TEST_F(SettingsUi, RecentAddressesThatAreTooLongAreCutOrLeftOut) {
    const std::wstring unterminated(260, L'x');
    device.Write(recentKey, L"Recent1", RegistryValue::Binary(unterminated.data(), 520));
    WriteRecent(2, std::wstring(300, L'y'));
    WriteRecent(3, L"\\Temp");
    program.Start();
    EXPECT_EQ(program.AddressBar().Entries(), (Texts{std::wstring(259, L'x'), L"\\Temp"}));
}

} // namespace
