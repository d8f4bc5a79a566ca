#include "foldertree/favorites_menu.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/handles.h"
#include "resources/resource.h"

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::wstring>;

class Favorites : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(home);
        fs::create_directories(home);
        AppendMenuW(menu.Get(), MF_STRING, IDM_FAVORITES_ADD, L"Add");
        AppendMenuW(menu.Get(), MF_STRING, IDM_FAVORITES_ORGANIZE, L"Organize");
    }
    void TearDown() override { fs::remove_all(home); }

    static void MakeFile(const fs::path& name) {
        fs::create_directories((home / name).parent_path());
        std::ofstream(home / name) << "x";
    }
    void Build() {
        Path folder;
        ASSERT_TRUE(folder.Assign(home.wstring()));
        favorites.buildFavoritesMenu(menu.Get(), folder);
    }
    /// The entries: "-" for a separator, what is in a popup behind its text in brackets.
    static Texts TextsOf(HMENU menu) {
        Texts texts;
        for (int position = 0; position < GetMenuItemCount(menu); ++position) {
            wchar_t text[MAX_PATH] = L"-";
            if (!(GetMenuState(menu, position, MF_BYPOSITION) & MF_SEPARATOR))
                GetMenuStringW(menu, position, text, MAX_PATH, MF_BYPOSITION);
            std::wstring whole = text;
            if (HMENU popup = GetSubMenu(menu, position)) {
                whole += L"[";
                for (const std::wstring& inner : TextsOf(popup))
                    whole += inner + L" ";
                whole += L"]";
            }
            texts.push_back(whole);
        }
        return texts;
    }

    static inline const fs::path home = L"\\Temp\\Favorites";
    MenuHandle menu{CreatePopupMenu()};
    FavoritesMenu favorites;
};

} // namespace

TEST_F(Favorites, AnEmptyFolderAddsNothing) {
    Build();
    EXPECT_EQ(TextsOf(menu.Get()), (Texts{L"Add", L"Organize"}));
}

TEST_F(Favorites, AMissingFolderAddsNothing) {
    fs::remove_all(home);
    Build();
    EXPECT_EQ(TextsOf(menu.Get()), (Texts{L"Add", L"Organize"}));
}

TEST_F(Favorites, FilesStandWithoutTheirExtensionBehindTheFolders) {
    MakeFile(L"One.lnk");
    MakeFile(L"Sub/Two.and.a half.lnk");
    Build();
    EXPECT_EQ(TextsOf(menu.Get()), (Texts{L"Add", L"Organize", L"-", L"Sub[Two.and.a half ]", L"One"}));
    EXPECT_EQ(GetMenuItemID(GetSubMenu(menu.Get(), 3), 0), UINT{IDM_FAVORITE_FIRST});
    EXPECT_EQ(GetMenuItemID(menu.Get(), 4), UINT{IDM_FAVORITE_FIRST} + 1);
    EXPECT_EQ(std::wstring(favorites.FileOf(0)), L"\\Temp\\Favorites\\Sub\\Two.and.a half.lnk");
    EXPECT_EQ(std::wstring(favorites.FileOf(1)), L"\\Temp\\Favorites\\One.lnk");
    EXPECT_EQ(favorites.FileOf(2), nullptr);
    EXPECT_EQ(favorites.FileOf(-1), nullptr);
}

TEST_F(Favorites, FilesWithoutADotAreLeftOut) {
    MakeFile(L"Plain");
    Build();
    EXPECT_EQ(TextsOf(menu.Get()), (Texts{L"Add", L"Organize", L"-"}));
    EXPECT_EQ(favorites.Count(), 0);
}

TEST_F(Favorites, ASubfolderWithoutEntriesHasNoPopup) {
    fs::create_directories(home / L"Empty");
    fs::create_directories(home / L"Outer" / L"Inner");
    Build();
    // The outer one does hold an entry.
    EXPECT_EQ(TextsOf(menu.Get()), (Texts{L"Add", L"Organize", L"-", L"Outer[]"}));
}

TEST_F(Favorites, FoldersNest) {
    fs::path deep;
    for (int level = 0; level < 20; ++level)
        deep /= L"d";
    MakeFile(deep / L"End.lnk");
    Build();
    HMENU inner = GetSubMenu(menu.Get(), 3);
    for (int level = 1; level < 20; ++level)
        inner = GetSubMenu(inner, 0);
    EXPECT_EQ(TextsOf(inner), Texts{L"End"});
}

TEST_F(Favorites, HundredsOfEntriesAreNumberedThrough) {
    for (int number = 0; number < 300; ++number) {
        MakeFile(L"F" + std::to_wstring(number) + L".lnk");
        MakeFile(L"Sub/G" + std::to_wstring(number) + L".lnk");
    }
    Build();
    ASSERT_EQ(favorites.Count(), 600);
    HMENU popup = GetSubMenu(menu.Get(), 3);
    EXPECT_EQ(GetMenuItemID(popup, 299), UINT{IDM_FAVORITE_FIRST} + 299);
    EXPECT_EQ(GetMenuItemID(menu.Get(), 4), UINT{IDM_FAVORITE_FIRST} + 300);
    EXPECT_EQ(GetMenuItemID(menu.Get(), 303), UINT{IDM_FAVORITE_FIRST} + 599);
}

TEST_F(Favorites, ClearingLeavesTheMenusOwnEntries) {
    MakeFile(L"One.lnk");
    MakeFile(L"Sub/Deeper/Two.lnk");
    Build();
    favorites.clearFavoritesMenu(menu.Get());
    EXPECT_EQ(TextsOf(menu.Get()), (Texts{L"Add", L"Organize"}));
    EXPECT_EQ(favorites.Count(), 0);
    Build();
    EXPECT_EQ(favorites.Count(), 2);
    EXPECT_EQ(GetMenuItemID(menu.Get(), 4), UINT{IDM_FAVORITE_FIRST} + 1);
}
