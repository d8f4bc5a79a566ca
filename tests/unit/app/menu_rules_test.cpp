#include "app/menu_rules.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "resources/resource.h"

namespace {

/// The commands that need an entry to act on.
const std::set<int> entryCommands = {
    IDM_FILE_SHORTCUT,  IDM_FILE_DELETE,    IDM_FILE_RENAME,        IDM_MENU_PROPERTIES,
    IDM_TOOLBAR_CUT,    IDM_TOOLBAR_COPY,   IDM_EDIT_COPY_NAME,     IDM_EDIT_COPY_PATH,
    IDM_SENDTO_COPY_TO, IDM_SENDTO_MOVE_TO, IDM_SENDTO_SHORTCUT_TO,
};
const std::set<int> fileCommands = {IDM_SENDTO_IR, IDM_OPEN_CHOOSE_PROGRAM, IDM_SENDTO_FIRST};

/// The states, told step by step as a menu would be set: what comes later overrules.
class ExpectedStates {
  public:
    explicit ExpectedStates(const MenuFacts& facts) {
        Set({IDM_FILE_NEW_FOLDER}, !facts.searchFolder);
        if (facts.focus == Focus::Text) {
            ForEditField();
            Set({IDM_TOOLBAR_PASTE}, facts.textToPaste);
            Set({IDM_TOOLBAR_PASTE_SHORTCUT}, false);
            return;
        }
        Set({IDM_TOOLBAR_PASTE}, facts.filesToPaste);
        Set({IDM_TOOLBAR_PASTE_SHORTCUT}, facts.filesToPaste && !facts.searchFolder);
        if (facts.focus == Focus::Tree)
            ForTree(facts);
        else
            ForList(facts);
    }

    bool At(int command) const { return states_.at(command); }
    std::size_t Count() const { return states_.size(); }

  private:
    void Set(const std::set<int>& commands, bool enabled) {
        for (int command : commands)
            states_[command] = enabled;
    }

    void GreyEverything() {
        Set({IDM_FILE_OPEN, IDM_SENDTO_ZIP, IDM_FILE_EXTRACT_TO, IDM_FILE_EXTRACT_HERE}, false);
        Set(entryCommands, false);
        Set(fileCommands, false);
    }

    void ForEntries(const MenuFacts& facts) {
        Set({IDM_FILE_OPEN}, true);
        Set(entryCommands, true);
        Set({IDM_SENDTO_ZIP}, facts.archiverAvailable);
        Set({IDM_FILE_EXTRACT_TO, IDM_FILE_EXTRACT_HERE}, facts.anyArchiverAvailable);
    }

    void ForList(const MenuFacts& facts) {
        GreyEverything();
        const bool focused = facts.focus == Focus::List;
        if (focused && facts.selectedCount >= 1) {
            ForEntries(facts);
            Set(fileCommands, facts.firstIsFile);
        } else if (focused && facts.anySelected) {
            Set({IDM_FILE_OPEN}, true);
        }
        if (facts.searchFolder)
            Set({IDM_FILE_SHORTCUT, IDM_FILE_NEW_FOLDER, IDM_TOOLBAR_PASTE_SHORTCUT, IDM_SENDTO_ZIP}, false);
    }

    void ForTree(const MenuFacts& facts) {
        GreyEverything();
        ForEntries(facts);
    }

    void ForEditField() {
        GreyEverything();
        Set({IDM_TOOLBAR_CUT, IDM_TOOLBAR_COPY}, true);
    }

    std::map<int, bool> states_;
};

/// Every combination there is.
std::vector<MenuFacts> AllFacts() {
    std::vector<MenuFacts> all;
    for (Focus focus : {Focus::List, Focus::Tree, Focus::Text, Focus::Elsewhere}) {
        for (int selected : {0, 1, 2, 100000}) {
            for (unsigned bits = 0; bits < 128; ++bits) {
                const auto bit = [bits](int index) { return (bits >> index & 1) != 0; };
                all.push_back({.focus = focus,
                               .selectedCount = selected,
                               .anySelected = bit(0),
                               .firstIsFile = bit(1),
                               .searchFolder = bit(2),
                               .archiverAvailable = bit(3),
                               .anyArchiverAvailable = bit(4),
                               .filesToPaste = bit(5),
                               .textToPaste = bit(6)});
            }
        }
    }
    return all;
}

MenuFacts FileSelected() {
    return {.focus = Focus::List, .selectedCount = 1, .anySelected = true, .firstIsFile = true};
}

TEST(MenuRules, HoldForEveryCombination) {
    for (const MenuFacts& facts : AllFacts()) {
        const ExpectedStates expected(facts);
        ASSERT_EQ(RuledCommands().size(), expected.Count());
        for (int command : RuledCommands()) {
            ASSERT_EQ(IsCommandEnabled(command, facts), expected.At(command))
                << "command " << command << ", focus " << static_cast<int>(facts.focus) << ", selected "
                << facts.selectedCount << ", any " << facts.anySelected << ", file " << facts.firstIsFile
                << ", search " << facts.searchFolder;
        }
    }
}

TEST(MenuRules, RuleEachCommandOnce) {
    const std::set<int> distinct(RuledCommands().begin(), RuledCommands().end());
    EXPECT_EQ(distinct.size(), RuledCommands().size());
}

TEST(MenuRules, LeaveOtherCommandsAlone) {
    for (int command : {IDM_MENU_EXIT, IDM_MENU_REFRESH, IDM_FILE_SEARCH, IDM_VIEW_OPTIONS, 0})
        EXPECT_TRUE(IsCommandEnabled(command, MenuFacts{}));
}

TEST(MenuRules, OnlyOpenTheUpLevelEntry) {
    const MenuFacts facts{.focus = Focus::List, .selectedCount = 0, .anySelected = true};
    EXPECT_TRUE(IsCommandEnabled(IDM_FILE_OPEN, facts));
    for (int command : entryCommands)
        EXPECT_FALSE(IsCommandEnabled(command, facts)) << command;
    for (int command : fileCommands)
        EXPECT_FALSE(IsCommandEnabled(command, facts)) << command;
}

TEST(MenuRules, CopyButDoNotBeamAFolder) {
    const MenuFacts facts{.focus = Focus::List, .selectedCount = 1, .anySelected = true};
    EXPECT_TRUE(IsCommandEnabled(IDM_SENDTO_COPY_TO, facts));
    EXPECT_FALSE(IsCommandEnabled(IDM_SENDTO_IR, facts));
    EXPECT_FALSE(IsCommandEnabled(IDM_OPEN_CHOOSE_PROGRAM, facts));
}

TEST(MenuRules, CreateNothingAmongSearchResults) {
    MenuFacts facts = FileSelected();
    facts.archiverAvailable = true;
    facts.filesToPaste = true;
    for (int command : {IDM_FILE_SHORTCUT, IDM_SENDTO_ZIP, IDM_FILE_NEW_FOLDER, IDM_TOOLBAR_PASTE_SHORTCUT})
        EXPECT_TRUE(IsCommandEnabled(command, facts)) << command;
    facts.searchFolder = true;
    for (int command : {IDM_FILE_SHORTCUT, IDM_SENDTO_ZIP, IDM_FILE_NEW_FOLDER, IDM_TOOLBAR_PASTE_SHORTCUT})
        EXPECT_FALSE(IsCommandEnabled(command, facts)) << command;
    EXPECT_TRUE(IsCommandEnabled(IDM_FILE_DELETE, facts));
}

TEST(MenuRules, CopyTheTextOfTheAddressBar) {
    MenuFacts facts = FileSelected();
    facts.focus = Focus::Text;
    EXPECT_FALSE(IsCommandEnabled(IDM_FILE_DELETE, facts));
    EXPECT_TRUE(IsCommandEnabled(IDM_TOOLBAR_COPY, facts));
    EXPECT_FALSE(IsCommandEnabled(IDM_TOOLBAR_PASTE, facts));
    facts.textToPaste = true;
    EXPECT_TRUE(IsCommandEnabled(IDM_TOOLBAR_PASTE, facts));
}

/// The commands that are marked among some.
std::set<int> MarkedOf(const std::set<int>& commands, const CheckFacts& facts) {
    std::set<int> marked;
    std::copy_if(commands.begin(), commands.end(), std::inserter(marked, marked.end()),
                 [&facts](int command) { return IsCommandChecked(command, facts); });
    return marked;
}

const std::set<int> sortCommands = {IDM_ARRANGE_NAME, IDM_ARRANGE_TYPE, IDM_ARRANGE_SIZE, IDM_ARRANGE_DATE};
const std::set<int> styleCommands = {IDM_VIEW_LARGE, IDM_VIEW_SMALL, IDM_VIEW_LIST, IDM_VIEW_DETAILED,
                                     IDM_VIEW_DETAILED_LINE};

TEST(CheckRules, MarkNothingThatIsOffButTheFirstKey) {
    for (int command : CheckedCommands())
        EXPECT_EQ(IsCommandChecked(command, CheckFacts{}), command == IDM_ARRANGE_NAME) << command;
}

TEST(CheckRules, MarkWhatIsOn) {
    const std::map<int, CheckFacts> marks = {
        {IDM_VIEW_STATUS_BAR, {.statusBar = true}},   {IDM_VIEW_FOLDER_TREE, {.folderTree = true}},
        {IDM_VIEW_SIDE, {.sideBySide = true}},        {IDM_VIEW_DRAG_DROP, {.dragDrop = true}},
        {IDM_VIEW_ADDRESS_BAR, {.addressBar = true}}, {IDM_KEY_CTRL, {.ctrlLatched = true}},
        {IDM_KEY_SHIFT, {.shiftLatched = true}},      {IDM_ARRANGE_REVERSE, {.ascending = false}},
    };
    std::set<int> commands;
    for (const auto& [command, facts] : marks)
        commands.insert(command);
    for (const auto& [command, facts] : marks)
        EXPECT_EQ(MarkedOf(commands, facts), std::set<int>{command});
}

TEST(CheckRules, MarkTheSortKeyAlone) {
    const int commands[] = {IDM_ARRANGE_NAME, IDM_ARRANGE_TYPE, IDM_ARRANGE_SIZE, IDM_ARRANGE_DATE};
    for (std::uint32_t key = 0; key < 4; ++key)
        EXPECT_EQ(MarkedOf(sortCommands, {.sortKey = key}), std::set<int>{commands[key]});
    EXPECT_TRUE(MarkedOf(sortCommands, {.sortKey = 4}).empty());
}

TEST(CheckRules, MarkTheViewStyleAlone) {
    for (const int command : styleCommands)
        EXPECT_EQ(MarkedOf(styleCommands, {.viewCommand = command}), std::set<int>{command});
    EXPECT_TRUE(MarkedOf(styleCommands, {}).empty());
}

TEST(CheckRules, NeverMarkTheToolBar) {
    EXPECT_FALSE(IsCommandChecked(IDM_TOOLBAR_HIDE, {.statusBar = true, .addressBar = true}));
}

} // namespace
