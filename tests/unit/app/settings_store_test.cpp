#include "app/settings_store.h"

#include <cstring>
#include <string>

#include "platform/ce_api.h"
#include "tests/unit/app/stored_values.h"

namespace {

constexpr const wchar_t* numberNames[] = {
    L"TreeViewWidth", L"TreeViewHeight", L"ShowStatusWnd", L"ShowFolder", L"ViewSide", L"DragDrop",
    L"CheckQAdd",     L"OverLapped",     L"ContextMenu",   L"FontChange", L"FontSize",
};
constexpr const wchar_t* textNames[] = {
    L"FontName",       L"FavoritesPath", L"DesktopPath", L"StartMenuPath",
    L"MyDocumentPath", L"NetworkPath",   L"SendAppPath",
};

std::wstring SpecialFolder(int folder, const wchar_t* fallback) {
    wchar_t path[MAX_PATH] = L"";
    return ce::SHGetSpecialFolderPath(nullptr, path, folder, FALSE) ? path : fallback;
}

class SettingsStore : public StoredValues {};

TEST_F(SettingsStore, HasItsDefaultsWithoutAnyValue) {
    Settings settings;
    LoadSettings(settings);
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);

    EXPECT_EQ(settings.showStatusBar, 1);
    EXPECT_EQ(settings.showFolderTree, 0);
    EXPECT_EQ(settings.viewSide, 0);
    EXPECT_EQ(settings.overlapped, 0);
    EXPECT_EQ(settings.dragContextMenu, 0);
    EXPECT_EQ(settings.fontChange, 0);
    EXPECT_EQ(settings.dragDrop, 1);
    EXPECT_EQ(settings.treeViewWidth, width);
    EXPECT_EQ(settings.treeViewHeight, (height - 4 * GetSystemMetrics(SM_CYMENU)) / 2);
    EXPECT_EQ(settings.fontSize, 12);
    EXPECT_STREQ(settings.fontName.data(), L"");
    EXPECT_STREQ(settings.sendToPath.data(), L"\\Windows\\SendTo");
    EXPECT_EQ(settings.quoteFilePath, 1);
    EXPECT_STREQ(settings.windowsPath.data(), L"\\Windows");
    EXPECT_STREQ(settings.networkPath.data(), L"\\Network");
    EXPECT_EQ(settings.favoritesPath.data(), SpecialFolder(CSIDL_FAVORITES, L"\\Windows\\Favorites"));
    EXPECT_EQ(settings.desktopPath.data(), SpecialFolder(CSIDL_DESKTOP, L"\\Windows\\Desktop"));
    EXPECT_EQ(settings.startMenuPath.data(), SpecialFolder(CSIDL_STARTMENU, L"\\Windows\\Start Menu"));
    EXPECT_EQ(settings.myDocumentsPath.data(), SpecialFolder(CSIDL_PERSONAL, L"\\My Documents"));
    EXPECT_STREQ(settings.networkLeaf, L"Network");
    EXPECT_EQ(settings.startMenuLeaf, LeafOf(settings.startMenuPath.data()));
    EXPECT_EQ(settings.myDocumentsLeaf, LeafOf(settings.myDocumentsPath.data()));
}

TEST_F(SettingsStore, WritesNumbersAsDwordsAndTextsWithTheirTerminator) {
    Settings settings;
    LoadSettings(settings);
    settings.treeViewHeight = -5;
    CopyTextTo(settings.fontName, L"Tahoma");
    SaveSettings(settings);

    for (const wchar_t* name : numberNames) {
        EXPECT_EQ(Read(settingsKey, name).type, static_cast<DWORD>(REG_DWORD));
        EXPECT_TRUE(Read(settingsKey, name).Number());
    }
    for (const wchar_t* name : textNames) {
        EXPECT_EQ(Read(settingsKey, name).type, static_cast<DWORD>(REG_SZ));
        EXPECT_TRUE(Read(settingsKey, name).Text());
    }
    EXPECT_EQ(Read(settingsKey, L"TreeViewHeight").Number(), static_cast<DWORD>(-5));
    EXPECT_EQ(Read(settingsKey, L"FontName").Text(), L"Tahoma");
    EXPECT_EQ(Read(settingsKey, L"FontName").bytes.size(), 14u);
}

TEST_F(SettingsStore, ReadsBackWhatItWrote) {
    Settings written;
    DWORD number = 40;
    for (auto field :
         {&Settings::showStatusBar, &Settings::showFolderTree, &Settings::viewSide, &Settings::overlapped,
          &Settings::dragContextMenu, &Settings::fontChange, &Settings::dragDrop, &Settings::treeViewWidth,
          &Settings::treeViewHeight, &Settings::fontSize, &Settings::quoteFilePath})
        written.*field = static_cast<std::int32_t>(++number);
    wchar_t text[] = L"\\Aa";
    for (auto field : {&Settings::sendToPath, &Settings::networkPath, &Settings::favoritesPath,
                       &Settings::desktopPath, &Settings::startMenuPath, &Settings::myDocumentsPath}) {
        ++text[1];
        CopyTextTo(written.*field, text);
    }
    CopyTextTo(written.fontName, L"Tahoma");
    SaveSettings(written);

    Settings read;
    LoadSettings(read);
    EXPECT_EQ(read.showStatusBar, written.showStatusBar);
    EXPECT_EQ(read.showFolderTree, written.showFolderTree);
    EXPECT_EQ(read.viewSide, written.viewSide);
    EXPECT_EQ(read.overlapped, written.overlapped);
    EXPECT_EQ(read.dragContextMenu, written.dragContextMenu);
    EXPECT_EQ(read.fontChange, written.fontChange);
    EXPECT_EQ(read.dragDrop, written.dragDrop);
    EXPECT_EQ(read.treeViewWidth, written.treeViewWidth);
    EXPECT_EQ(read.treeViewHeight, written.treeViewHeight);
    EXPECT_EQ(read.fontSize, written.fontSize);
    EXPECT_EQ(read.quoteFilePath, written.quoteFilePath);
    EXPECT_STREQ(read.fontName.data(), written.fontName.data());
    EXPECT_STREQ(read.sendToPath.data(), written.sendToPath.data());
    EXPECT_STREQ(read.networkPath.data(), written.networkPath.data());
    EXPECT_STREQ(read.favoritesPath.data(), written.favoritesPath.data());
    EXPECT_STREQ(read.desktopPath.data(), written.desktopPath.data());
    EXPECT_STREQ(read.startMenuPath.data(), written.startMenuPath.data());
    EXPECT_STREQ(read.myDocumentsPath.data(), written.myDocumentsPath.data());
}

TEST_F(SettingsStore, CutsTextsToTheirFields) {
    for (const wchar_t* name : textNames)
        StoreText(settingsKey, name, std::wstring(259, L'x'));
    Settings settings;
    LoadSettings(settings);
    EXPECT_EQ(settings.fontName.data(), std::wstring(127, L'x'));
    EXPECT_EQ(settings.desktopPath.data(), std::wstring(259, L'x'));

    for (const wchar_t* name : textNames)
        Store(settingsKey, name, REG_SZ, std::wstring(261, L'y').data(), 520);
    LoadSettings(settings);
    EXPECT_EQ(settings.fontName.data(), std::wstring(127, L'y'));
    EXPECT_EQ(settings.desktopPath.data(), std::wstring(259, L'y'));
    EXPECT_EQ(settings.windowsPath.data(), std::wstring(L"\\Windows")) << "the field between stays whole";
}

TEST_F(SettingsStore, KeepsTheDefaultForAValueThatIsTooLong) {
    StoreText(settingsKey, L"SendAppPath", std::wstring(260, L'x'));
    Store(settingsKey, L"FontSize", REG_BINARY, std::string(521, 'x').data(), 521);
    Settings settings;
    LoadSettings(settings);
    EXPECT_STREQ(settings.sendToPath.data(), L"\\Windows\\SendTo");
    EXPECT_EQ(settings.fontSize, 12);
}

TEST_F(SettingsStore, SurvivesEveryValueAtItsWorst) {
    for (std::size_t size : {0u, 1u, 2u, 3u, 5u, 255u, 256u, 257u, 519u, 520u, 521u, 4096u}) {
        const std::string bytes(size, '\xFF');
        for (DWORD type : {REG_DWORD, REG_SZ, REG_BINARY}) {
            for (const wchar_t* name : numberNames)
                Store(settingsKey, name, type, bytes.data(), size);
            for (const wchar_t* name : textNames)
                Store(settingsKey, name, type, bytes.data(), size);
            Settings settings;
            LoadSettings(settings);
            EXPECT_LE(std::wcslen(settings.fontName.data()), 127u);
            EXPECT_LE(std::wcslen(settings.networkPath.data()), 259u);
            EXPECT_LE(std::wcslen(settings.networkLeaf), 259u);
            EXPECT_LE(std::wcslen(settings.startMenuLeaf), 259u);
            EXPECT_LE(std::wcslen(settings.myDocumentsLeaf), 259u);
            EXPECT_STREQ(settings.windowsPath.data(), L"\\Windows");
        }
    }
}

TEST_F(SettingsStore, FindsTheLeavesOfTheStoredFolders) {
    StoreText(settingsKey, L"StartMenuPath", L"\\Storage Card\\Begin");
    StoreText(settingsKey, L"MyDocumentPath", L"\\Storage Card\\Papers");
    Settings settings;
    LoadSettings(settings);
    EXPECT_STREQ(settings.startMenuLeaf, L"Begin");
    EXPECT_STREQ(settings.myDocumentsLeaf, L"Papers");
}

TEST_F(SettingsStore, TakesAFolderWithoutABackslashAsItsOwnLeaf) {
    StoreText(settingsKey, L"StartMenuPath", L"Begin");
    StoreText(settingsKey, L"MyDocumentPath", L"Papers");
    Settings settings;
    LoadSettings(settings);
    EXPECT_STREQ(settings.startMenuLeaf, L"Begin");
    EXPECT_STREQ(settings.myDocumentsLeaf, L"Papers");
}

TEST_F(SettingsStore, KeepsTheDefaultsLeafForAnEmptyDocumentsFolder) {
    const std::wstring before(LeafOf(SpecialFolder(CSIDL_PERSONAL, L"\\My Documents")));
    StoreText(settingsKey, L"MyDocumentPath", L"");
    Settings settings;
    LoadSettings(settings);
    EXPECT_STREQ(settings.myDocumentsPath.data(), L"");
    EXPECT_EQ(settings.myDocumentsLeaf, before);
}

TEST_F(SettingsStore, NeverMovesTheNetworksLeaf) {
    StoreText(settingsKey, L"NetworkPath", L"\\Net\\Shared");
    Settings settings;
    LoadSettings(settings);
    EXPECT_STREQ(settings.networkPath.data(), L"\\Net\\Shared");
    EXPECT_EQ(settings.networkLeaf, settings.networkPath.data() + 1);
}

TEST_F(SettingsStore, DoesNotStoreTheWindowsFolder) {
    SaveSettings(Settings{});
    EXPECT_FALSE(Find(settingsKey, L"WindowsPath"));
}

TEST_F(SettingsStore, WritesTheProgramsPathAsAWholeBuffer) {
    SaveProgramPath();
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const StoredValue value = Read(productKey, L"Path");
    EXPECT_EQ(value.type, static_cast<DWORD>(REG_SZ));
    ASSERT_EQ(value.bytes.size(), 520u);
    EXPECT_EQ(std::wstring(reinterpret_cast<const wchar_t*>(value.bytes.data())), program);
}

} // namespace
