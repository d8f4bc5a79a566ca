#include "filelist/context_menu_rules.h"

#include <gtest/gtest.h>

#include "resources/resource.h"

namespace {

int PopupOf(int count, bool file, std::wstring_view name) {
    return ContextPopup({.count = count, .any = count > 0, .firstIsFile = file, .firstName = name});
}

TEST(ContextMenuRules, OpenTheArchivesMenuForExactlyThatExtension) {
    EXPECT_EQ(PopupOf(1, true, L"a.zip"), 0);
    EXPECT_EQ(PopupOf(1, true, L"a.tar.zip"), 0);
    EXPECT_EQ(PopupOf(1, true, L".zip"), 0);
}

TEST(ContextMenuRules, OpenNoneForOtherFiles) {
    for (const wchar_t* name : {L"a.ZIP", L"a.Zip", L"a.txt", L"a", L"zip", L"a.zip.txt", L"a.zip "})
        EXPECT_EQ(PopupOf(1, true, name), noContextPopup);
}

TEST(ContextMenuRules, OpenTheFoldersMenuForAFolderOfAnyName) {
    EXPECT_EQ(PopupOf(1, false, L"Aa"), 1);
    EXPECT_EQ(PopupOf(1, false, L"a.zip"), 1);
}

TEST(ContextMenuRules, OpenOneMenuForSeveral) {
    for (int count : {2, 3, 100000}) {
        EXPECT_EQ(PopupOf(count, true, L"a.zip"), 2);
        EXPECT_EQ(PopupOf(count, false, L"Aa"), 2);
    }
}

TEST(ContextMenuRules, OpenTheFoldersOwnMenuWithNothingSelected) {
    EXPECT_EQ(ContextPopup({}), 3);
    EXPECT_EQ(ContextPopup({.count = 0, .any = true, .firstIsFile = false, .firstName = L".."}),
              noContextPopup)
        << "the way up alone has none";
}

} // namespace
