#include "app/menu_rules.h"

#include <algorithm>
#include <array>

#include "resources/resource.h"

namespace {

/// Where the keyboard is and what it finds there, as a bit of a set.
enum Situation : std::uint8_t {
    entries = 1,    // the list, with entries selected
    upLevel = 2,    // the list, with only the up-level entry selected
    nothing = 4,    // the list with nothing selected, or no pane at all
    tree = 8,       // a folder of the tree
    editField = 16, // the address bar, or a name being edited
    always = 31
};

/// What else a command needs where it can act.
enum class Needs : std::uint8_t { Nothing, File, Archiver, AnyArchiver, Pasteable, FilesToPaste };

struct Rule {
    int command;
    int inFolder; // the situations in which it can act
    int inSearch; // the same among search results, where nothing can be created
    Needs needs = Needs::Nothing;
};

constexpr int selection = entries | tree;

constexpr Rule rules[] = {
    {IDM_FILE_OPEN, selection | upLevel, selection | upLevel},
    {IDM_FILE_SHORTCUT, selection, tree},
    {IDM_FILE_DELETE, selection, selection},
    {IDM_FILE_RENAME, selection, selection},
    {IDM_MENU_PROPERTIES, selection, selection},
    {IDM_TOOLBAR_CUT, selection | editField, selection | editField},
    {IDM_TOOLBAR_COPY, selection | editField, selection | editField},
    {IDM_EDIT_COPY_NAME, selection, selection},
    {IDM_EDIT_COPY_PATH, selection, selection},
    {IDM_SENDTO_COPY_TO, selection, selection},
    {IDM_SENDTO_MOVE_TO, selection, selection},
    {IDM_SENDTO_SHORTCUT_TO, selection, selection},
    {IDM_SENDTO_IR, entries, entries, Needs::File},
    {IDM_OPEN_CHOOSE_PROGRAM, entries, entries, Needs::File},
    {IDM_SENDTO_FIRST, entries, entries, Needs::File},
    {IDM_SENDTO_ZIP, selection, tree, Needs::Archiver},
    {IDM_FILE_EXTRACT_TO, selection, selection, Needs::AnyArchiver},
    {IDM_FILE_EXTRACT_HERE, selection, selection, Needs::AnyArchiver},
    {IDM_FILE_NEW_FOLDER, always, 0},
    {IDM_TOOLBAR_PASTE, always, always, Needs::Pasteable},
    {IDM_TOOLBAR_PASTE_SHORTCUT, always & ~editField, 0, Needs::FilesToPaste},
};

constexpr auto ruledCommands = [] {
    std::array<int, std::size(rules)> commands{};
    std::transform(std::begin(rules), std::end(rules), commands.begin(),
                   [](const Rule& rule) { return rule.command; });
    return commands;
}();

constexpr int checkedCommands[] = {
    IDM_VIEW_STATUS_BAR,  IDM_VIEW_FOLDER_TREE, IDM_VIEW_SIDE,          IDM_VIEW_DRAG_DROP, IDM_TOOLBAR_HIDE,
    IDM_VIEW_ADDRESS_BAR, IDM_ARRANGE_NAME,     IDM_ARRANGE_TYPE,       IDM_ARRANGE_SIZE,   IDM_ARRANGE_DATE,
    IDM_ARRANGE_REVERSE,  IDM_KEY_CTRL,         IDM_KEY_SHIFT,          IDM_VIEW_LARGE,     IDM_VIEW_SMALL,
    IDM_VIEW_LIST,        IDM_VIEW_DETAILED,    IDM_VIEW_DETAILED_LINE,
};

Situation SituationOf(const MenuFacts& facts) {
    switch (facts.focus) {
    case Focus::List:
        return facts.selectedCount > 0 ? entries : facts.anySelected ? upLevel : nothing;
    case Focus::Tree:
        return tree;
    case Focus::Text:
        return editField;
    case Focus::Elsewhere:
        break;
    }
    return nothing;
}

bool IsMet(Needs needs, const MenuFacts& facts) {
    switch (needs) {
    case Needs::File:
        return facts.firstIsFile;
    case Needs::Archiver:
        return facts.archiverAvailable;
    case Needs::AnyArchiver:
        return facts.anyArchiverAvailable;
    case Needs::Pasteable:
        return facts.focus == Focus::Text ? facts.textToPaste : facts.filesToPaste;
    case Needs::FilesToPaste:
        return facts.filesToPaste;
    case Needs::Nothing:
        break;
    }
    return true;
}

} // namespace

std::span<const int> RuledCommands() {
    return ruledCommands;
}

bool IsCommandEnabled(int command, const MenuFacts& facts) {
    const Rule* rule = std::find_if(std::begin(rules), std::end(rules), [command](const Rule& candidate) {
        return candidate.command == command;
    });
    if (rule == std::end(rules))
        return true;
    const int situations = facts.searchFolder ? rule->inSearch : rule->inFolder;
    return (situations & SituationOf(facts)) != 0 && IsMet(rule->needs, facts);
}

std::span<const int> CheckedCommands() {
    return checkedCommands;
}

bool IsCommandChecked(int command, const CheckFacts& facts) {
    switch (command) {
    case IDM_VIEW_STATUS_BAR:
        return facts.statusBar;
    case IDM_VIEW_FOLDER_TREE:
        return facts.folderTree;
    case IDM_VIEW_SIDE:
        return facts.sideBySide;
    case IDM_VIEW_DRAG_DROP:
        return facts.dragDrop;
    case IDM_VIEW_ADDRESS_BAR:
        return facts.addressBar;
    case IDM_ARRANGE_NAME:
        return facts.sortKey == 0;
    case IDM_ARRANGE_TYPE:
        return facts.sortKey == 1;
    case IDM_ARRANGE_SIZE:
        return facts.sortKey == 2;
    case IDM_ARRANGE_DATE:
        return facts.sortKey == 3;
    case IDM_ARRANGE_REVERSE:
        return !facts.ascending;
    case IDM_KEY_CTRL:
        return facts.ctrlLatched;
    case IDM_KEY_SHIFT:
        return facts.shiftLatched;
    case IDM_TOOLBAR_HIDE: // the tool bar always starts hidden
        return false;
    default:
        return command == facts.viewCommand;
    }
}
