#include "filelist/user_path_menu.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/handles.h"
#include "resources/resource.h"

namespace {

/// The "Go to" popup of the program's own menu.
class UserPathMenu : public testing::Test {
  protected:
    static std::vector<OwnedText> Paths(const std::vector<std::wstring>& texts) {
        std::vector<OwnedText> paths;
        for (const std::wstring& text : texts)
            paths.push_back(CopyText(text));
        return paths;
    }

    /// The entries as "command text", "-" for a separator and "> text" for a popup.
    std::vector<std::wstring> Entries() const {
        std::vector<std::wstring> entries;
        for (int position = 0; position < GetMenuItemCount(goTo_); ++position) {
            wchar_t text[300] = L"";
            GetMenuStringW(goTo_, static_cast<UINT>(position), text, 300, MF_BYPOSITION);
            const UINT state = GetMenuState(goTo_, static_cast<UINT>(position), MF_BYPOSITION);
            if (GetSubMenu(goTo_, position))
                entries.push_back(std::wstring(L"> ") + text);
            else if (state & MF_SEPARATOR)
                entries.push_back(L"-");
            else
                entries.push_back(std::to_wstring(GetMenuItemID(goTo_, position)) + L" " + text);
        }
        return entries;
    }

    MenuHandle menu_{LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MENU_LIST))};
    HMENU goTo_ = GetSubMenu(menu_.Get(), POPUP_GO_TO);
    const std::vector<std::wstring> plain_ = Entries();
};

TEST_F(UserPathMenu, BeginsWithTheFixedEntries) {
    EXPECT_EQ(plain_,
              (std::vector<std::wstring>{L"> Favorites", L"-", L"40051 My PocketPC", L"40052 My Documents",
                                         L"40057 Start Menu", L"-", L"40058 User Path"}));
}

TEST_F(UserPathMenu, ShowsThePathsBeforeUserPath) {
    const std::vector<OwnedText> paths = Paths({L"\\Storage Card", L"\\Aa\\Bb", L"plain"});
    InsertUserPaths(goTo_, paths);
    std::vector<std::wstring> expected = plain_;
    expected.insert(expected.begin() + 6, {L"50100 Storage Card", L"50101 Bb", L"50102 plain", L"-"});
    EXPECT_EQ(Entries(), expected);
    RemoveUserPaths(goTo_, paths);
    EXPECT_EQ(Entries(), plain_);
}

TEST_F(UserPathMenu, StaysAsItIsWithoutPaths) {
    InsertUserPaths(goTo_, {});
    EXPECT_EQ(Entries(), plain_);
    RemoveUserPaths(goTo_, {});
    EXPECT_EQ(Entries(), plain_);
}

TEST_F(UserPathMenu, ShowsAsManyAsThereAreNumbersFor) {
    for (int count : {1, 15, 16, 17, 40}) {
        const std::vector<OwnedText> paths = Paths(std::vector<std::wstring>(count, L"\\Aa"));
        InsertUserPaths(goTo_, paths);
        EXPECT_EQ(static_cast<int>(Entries().size()), 7 + std::min(count, 16) + 1);
        EXPECT_EQ(GetMenuState(goTo_, IDM_USERPATH_FIRST + 16, MF_BYCOMMAND), static_cast<UINT>(-1));
        RemoveUserPaths(goTo_, paths);
        EXPECT_EQ(Entries(), plain_);
    }
}

TEST_F(UserPathMenu, CallsAPathByItsLastPart) {
    EXPECT_EQ(UserPathMenuText(L"\\Storage Card"), L"Storage Card");
    EXPECT_EQ(UserPathMenuText(L"\\Aa\\Bb"), L"Bb");
    EXPECT_EQ(UserPathMenuText(L"plain"), L"plain");
    EXPECT_EQ(UserPathMenuText(L"\\Aa\\"), L"");
    EXPECT_EQ(UserPathMenuText(L""), L"");
}

} // namespace
