// Screens: 240x320

// The Favorites folder and its menu.

#include <algorithm>

#include "tests/support/ui_test.h"

namespace {

const std::wstring favoritesFolder = L"\\Windows\\Favorites";

class FavoritesUi : public UiTest {
  protected:
    void SetUp() override { device.Remove(favoritesFolder + L"\\Notes.lnk"); }
    Menu Favorites() const { return program.SoftKeyMenu().Popup(L"Go to").Popup(L"Favorites"); }
    void ShortcutTo(const std::wstring& name, const std::string& target) {
        device.File(favoritesFolder + L"\\" + name,
                    std::to_string(target.size() + 2) + "#\"" + target + "\"");
    }
    bool Becomes(const Texts& names) const {
        return Eventually([&] { return device.NamesIn(favoritesFolder) == names; });
    }
};

TEST_F(FavoritesUi, AnEmptyFolderLeavesTheMenuAsItIs) {
    program.Start();
    EXPECT_EQ(Favorites().Texts(), (Texts{L"Add", L"Organize"}));
    device.Remove(favoritesFolder);
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(Favorites().Texts(), (Texts{L"Add", L"Organize"}));
}

TEST_F(FavoritesUi, SubfoldersArePopupsInFrontOfTheFiles) {
    ShortcutTo(L"Zoo.lnk", "\\My Documents");
    ShortcutTo(L"Sub\\Inner\\Deep.lnk", "\\Windows");
    device.Folder(favoritesFolder + L"\\Nothing");
    device.File(favoritesFolder + L"\\Plain");
    program.Start();
    EXPECT_EQ(Favorites().Texts(), (Texts{L"Add", L"Organize", L"-", L"Sub", L"Zoo"}));
    EXPECT_EQ(Favorites().Popup(L"Sub").Popup(L"Inner").Texts(), Texts{L"Deep"});
    program.Command(IDM_FAVORITE_FIRST);
    program.WaitForFolder(L"\\Windows");
    program.Command(IDM_FAVORITE_FIRST + 1);
    program.WaitForFolder(L"\\My Documents");
    program.Command(IDM_FAVORITE_FIRST + 2); // there is none
    EXPECT_EQ(program.Folder(), L"\\My Documents");
}

TEST_F(FavoritesUi, HundredsInNestedFoldersAreAllInTheMenu) {
    constexpr std::size_t folders = 5;
    constexpr std::size_t inEach = 100;
    for (std::size_t folder = 0; folder < folders; ++folder) {
        const std::wstring name = favoritesFolder + L"\\Folder" + std::to_wstring(folder);
        device.Files(name, L"file.", inEach - 10);
        device.Files(name + L"\\Inner", L"deep.", 10);
    }
    ShortcutTo(L"Last.lnk", "\\My Documents");
    program.Start();

    const Menu menu = Favorites();
    EXPECT_EQ(menu.Items().size(), 3 + folders + 1); // behind "Add", "Organize" and the line
    std::vector<UINT> commands;
    for (std::size_t folder = 0; folder < folders; ++folder) {
        const Menu popup = menu.Popup(L"Folder" + std::to_wstring(folder));
        EXPECT_EQ(popup.Items().size(), inEach - 10 + 1);
        EXPECT_EQ(popup.Popup(L"Inner").Items().size(), 10u);
        const std::vector<UINT> inside = popup.EnabledCommands();
        commands.insert(commands.end(), inside.begin(), inside.end());
    }
    commands.push_back(menu.Item(L"Last").id);
    std::sort(commands.begin(), commands.end());
    ASSERT_EQ(commands.size(), folders * inEach + 1);
    for (std::size_t number = 0; number < commands.size(); ++number)
        EXPECT_EQ(commands[number], IDM_FAVORITE_FIRST + number);

    program.Command(menu.Item(L"Last").id);
    program.WaitForFolder(L"\\My Documents");
}

TEST_F(FavoritesUi, RefreshReadsTheFolderAgain) {
    program.Start();
    ShortcutTo(L"One.lnk", "\\Windows");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(Favorites().Texts(), (Texts{L"Add", L"Organize", L"-", L"One"}));
    device.Remove(favoritesFolder + L"\\One.lnk");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(Favorites().Texts(), (Texts{L"Add", L"Organize"}));
}

TEST_F(FavoritesUi, AFavoriteThatIsGoneIsToldOf) {
    ShortcutTo(L"One.lnk", "\\Windows");
    program.Start();
    device.Remove(favoritesFolder + L"\\One.lnk");
    program.PostCommand(IDM_FAVORITE_FIRST);
    MessageBoxShown message = program.WaitForMessageBox();
    EXPECT_EQ(message.Text(), L"This folder or file could not be found. Check the path or file name.");
    message.Answer(IDOK);
}

TEST_F(FavoritesUi, AddMakesShortcutsToTheSelectedEntries) {
    device.File(L"\\A\\one.txt");
    device.Folder(L"\\A\\Sub");
    program.Start(L"\\A");
    program.List().Select(L"one");
    program.List().AddToSelection(L"Sub");
    program.Command(IDM_FAVORITES_ADD);
    EXPECT_TRUE(Becomes({L"Shortcut to Sub.lnk", L"Shortcut to one.lnk"}));
    EXPECT_EQ(program.Folder(), L"\\A");
    EXPECT_EQ(program.List().SelectedNames(), Texts{});
    EXPECT_EQ(Favorites().Items().size(), 5u);
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_PASTE)); // the clipboard keeps them
}

TEST_F(FavoritesUi, AddWithNothingSelectedTakesTheFolderShown) {
    device.Folder(L"\\A\\Sub");
    program.Start(L"\\A\\Sub");
    program.List().SelectNothing();
    program.Command(IDM_FAVORITES_ADD);
    EXPECT_TRUE(Becomes({L"Shortcut to Sub.lnk"}));
    EXPECT_EQ(program.Folder(), L"\\A\\Sub");
    EXPECT_EQ(program.List().Names(), Texts{L".."});
    program.HandOverFolder(L"");
    program.Command(IDM_FAVORITE_FIRST);
    program.WaitForFolder(L"\\A\\Sub");
}

TEST_F(FavoritesUi, AddAtTheRootWithNothingSelectedAddsNothing) {
    device.File(L"\\A\\one.txt");
    program.Start(L"\\A");
    program.List().Select(L"one");
    program.Command(IDM_TOOLBAR_COPY);
    program.HandOverFolder(L"");
    program.List().SelectNothing();
    program.Command(IDM_FAVORITES_ADD);
    EXPECT_EQ(device.NamesIn(favoritesFolder), Texts{});
}

TEST_F(FavoritesUi, AddFromTheTreeTakesItsFolder) {
    device.Folder(L"\\A\\Sub");
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    program.Start(L"\\A\\Sub");
    program.Command(IDM_FOCUS_NEXT);
    if (!program.TreeHasFocus())
        program.Command(IDM_FOCUS_NEXT);
    ASSERT_TRUE(program.TreeHasFocus());
    program.Command(IDM_FAVORITES_ADD);
    EXPECT_TRUE(Becomes({L"Shortcut to Sub.lnk"}));
    EXPECT_EQ(program.Folder(), L"\\A\\Sub");
    EXPECT_EQ(program.List().Names(), Texts{L".."});
}

TEST_F(FavoritesUi, CtrlIAdds) {
    device.File(L"\\A\\one.txt");
    program.Start(L"\\A");
    program.List().Select(L"one");
    PressKey('I', Ctrl);
    EXPECT_TRUE(Becomes({L"Shortcut to one.lnk"}));
}

TEST_F(FavoritesUi, LoopsOfLinksAreNotFollowed) {
    ShortcutTo(L"One.lnk", "\\Windows");
    device.HostLink("Windows/Favorites/Loop", "../Favorites");
    program.Start();
    EXPECT_EQ(Favorites().Texts(), (Texts{L"Add", L"Organize", L"-", L"One"}));
}

TEST_F(FavoritesUi, NamesWithAnAmpersandReadAsTheyAre) {
    // "&&" is what menus draw as "&".
    ShortcutTo(L"Music & Video\\R&D.lnk", "\\Windows");
    ShortcutTo(L"Home & Away.lnk", "\\My Documents");
    device.File(L"\\Windows\\SendTo\\Cut & Paste.exe");
    program.Start();
    EXPECT_EQ(Favorites().Texts(), (Texts{L"Add", L"Organize", L"-", L"Music && Video", L"Home && Away"}));
    EXPECT_EQ(Favorites().Popup(L"Music && Video").Texts(), Texts{L"R&&D"});
    EXPECT_EQ(program.SoftKeyMenu().Item(IDM_SENDTO_FIRST).text, L"Cut && Paste");
    program.Command(IDM_FAVORITE_FIRST);
    program.WaitForFolder(L"\\Windows");
}

TEST_F(FavoritesUi, AFavoriteThatIsAShortcutToAShortcutLeadsOn) {
    device.File(L"\\Temp\\docs.lnk", "15#\"\\My Documents\"");
    ShortcutTo(L"Docs.lnk", "\\Temp\\docs.lnk");
    program.Start();
    program.Command(IDM_FAVORITE_FIRST);
    program.WaitForFolder(L"\\My Documents");
}

} // namespace
