#include <map>
#include <utility>

#include <gtest/gtest.h>

#include "filelist/list_input.h"
#include "resources/resource.h"

namespace {

constexpr KeyState none{};
constexpr KeyState ctrl{.ctrl = true, .alt = false};
constexpr KeyState alt{.ctrl = false, .alt = true};
constexpr KeyState both{.ctrl = true, .alt = true};

const std::map<int, int> withCtrl = {
    {'Q', IDM_MENU_EXIT},          {'C', IDM_TOOLBAR_COPY},       {'X', IDM_TOOLBAR_CUT},
    {'V', IDM_TOOLBAR_PASTE},      {'A', IDM_EDIT_SELECT_ALL},    {'F', IDM_FILE_SEARCH},
    {'R', IDM_MENU_REFRESH},       {'O', IDM_SENDTO_COPY_TO},     {'T', IDM_SENDTO_MOVE_TO},
    {'S', IDM_SENDTO_SHORTCUT_TO}, {'L', IDM_TOOLBAR_LIST_STYLE}, {'P', IDM_MENU_PROPERTIES},
    {'D', IDM_FILE_DELETE},        {'N', IDM_FILE_NEW_FOLDER},    {'B', IDM_OPEN_PARAMETERS},
    {'I', IDM_FAVORITES_ADD},      {'U', IDM_GOTO_USER_PATH},     {'M', keyOpensContextMenu},
};
const std::map<int, int> withAnything = {
    {VK_BACK, IDM_TOOLBAR_UP_FOLDER}, {VK_DELETE, IDM_FILE_DELETE}, {VK_F2, IDM_FILE_RENAME},
    {VK_F3, IDM_FILE_SEARCH},         {VK_F4, IDM_VIEW_OPTIONS},    {VK_F5, IDM_MENU_REFRESH},
    {VK_F6, keyFocusesAddressBar},
};
const std::map<int, int> withAlt = {
    {VK_RIGHT, IDM_TOOLBAR_FORWARD},
    {VK_LEFT, IDM_TOOLBAR_BACK},
    {VK_CONTROL, keyOpensContextMenu},
};

int In(const std::map<int, int>& keys, int key) {
    const auto found = keys.find(key);
    return found == keys.end() ? keyTranslatesToNothing : found->second;
}

bool IsDigit(int key) {
    return key >= '0' && key <= '9';
}

TEST(ListKeys, StandForTheirCommandsAndNothingElse) {
    for (int key = 0; key < 256; ++key) {
        if (IsDigit(key))
            continue;
        const int always = In(withAnything, key);
        EXPECT_EQ(TranslateListKey(key, none), always) << key;
        EXPECT_EQ(TranslateListKey(key, ctrl), always ? always : In(withCtrl, key)) << key;
        EXPECT_EQ(TranslateListKey(key, alt), always ? always : In(withAlt, key)) << key;
    }
}

TEST(ListKeys, PickBuiltEntriesByTheirDigits) {
    for (int key = '0'; key <= '9'; ++key) {
        const int entry = key == '0' ? 9 : key - '1';
        EXPECT_EQ(TranslateListKey(key, none), keyTranslatesToNothing);
        EXPECT_EQ(TranslateListKey(key, ctrl), 50000 + entry);
        EXPECT_EQ(TranslateListKey(key, alt), 50100 + entry);
        EXPECT_EQ(TranslateListKey(key, both), 50000 + entry) << "the first that matches";
    }
}

TEST(ListKeys, TakeTheFirstMatchWithBothModifiers) {
    EXPECT_EQ(TranslateListKey(VK_RIGHT, both), IDM_TOOLBAR_FORWARD);
    EXPECT_EQ(TranslateListKey('C', both), IDM_TOOLBAR_COPY);
    EXPECT_EQ(TranslateListKey(VK_CONTROL, both), keyOpensContextMenu);
}

} // namespace
