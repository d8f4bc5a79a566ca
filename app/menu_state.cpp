#include "app/menu_state.h"

#include "app/app_state.h"
#include "app/menu_rules.h"
#include "filelist/view_styles.h"
#include "resources/resource.h"

namespace {

constexpr int toolButtons[] = {IDM_FILE_DELETE, IDM_MENU_PROPERTIES, IDM_TOOLBAR_CUT, IDM_TOOLBAR_COPY,
                               IDM_TOOLBAR_PASTE};

void EnableIn(HMENU menu, int command, bool enabled) {
    EnableMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void CheckIn(HMENU menu, int command, bool checked) {
    CheckMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (checked ? MF_CHECKED : MF_UNCHECKED));
}

void SetToolButton(int command, int state) {
    SendMessageW(appState.commandBar, TB_SETSTATE, static_cast<WPARAM>(command), MAKELPARAM(state, 0));
}

void EnableToolButton(int command, bool enabled) {
    SetToolButton(command, enabled ? TBSTATE_ENABLED : TBSTATE_INDETERMINATE);
}

void CheckToolButton(int command, bool checked) {
    SetToolButton(command, checked ? TBSTATE_CHECKED | TBSTATE_ENABLED : TBSTATE_ENABLED);
}

/// A text field belongs to the address bar, or to a name that a pane is editing. Such an edit counts from its
/// notice on, a moment before its field has the keyboard.
Focus FindFocus() {
    if (appState.labelEditing)
        return Focus::Text;
    HWND focused = GetFocus();
    HWND list = appState.fileList.Window();
    HWND tree = appState.folderTree.Window();
    if (!focused)
        return Focus::Elsewhere;
    if (focused == list)
        return Focus::List;
    if (focused == tree)
        return Focus::Tree;
    if (focused == appState.addressCombo || IsChild(appState.addressCombo, focused) ||
        IsChild(list, focused) || IsChild(tree, focused))
        return Focus::Text;
    return Focus::Elsewhere;
}

bool FirstSelectedIsFile(const FileList& list) {
    const std::optional<SelectionEntry> entry = list.EntryAt(list.FirstSelected());
    return entry && entry->kind == ItemKind::File;
}

MenuFacts GatherMenuFacts() {
    const FileList& list = appState.fileList;
    MenuFacts facts;
    facts.focus = FindFocus();
    facts.searchFolder = list.CurrentFolder().IsSearchFolder();
    facts.archiverAvailable =
        appState.archivers.IsArchiverAvailable(static_cast<ArchiveType>(list.options.archiveType));
    facts.anyArchiverAvailable = appState.archivers.AnyArchiverAvailable();
    facts.filesToPaste = appState.filesToPaste;
    facts.textToPaste = IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
    if (facts.focus == Focus::List) {
        facts.selectedCount = list.SelectedCount();
        facts.anySelected = list.FirstSelected() >= 0;
        facts.firstIsFile = FirstSelectedIsFile(list);
    }
    return facts;
}

CheckFacts GatherCheckFacts() {
    const Settings& settings = appState.settings;
    const ListOptions& options = appState.fileList.options;
    return {
        .statusBar = settings.showStatusBar != 0,
        .folderTree = settings.showFolderTree != 0,
        .sideBySide = settings.viewSide != 0,
        .dragDrop = settings.dragDrop != 0,
        .addressBar = appState.commandBands.addressBarShown != 0,
        .ctrlLatched = appState.ctrlLatched,
        .shiftLatched = appState.shiftLatched,
        .sortKey = options.sortKey,
        .ascending = options.ascending != 0,
        .viewCommand = CheckedViewCommand(options),
    };
}

/// The built entries of "Send To" share one rule.
void EnableBuiltEntries(HMENU menu, const MenuFacts& facts) {
    const bool enabled = IsCommandEnabled(IDM_SENDTO_FIRST, facts);
    for (int entry = 1; entry < BUILT_ENTRY_LIMIT; ++entry)
        EnableIn(menu, IDM_SENDTO_FIRST + entry, enabled);
}

void ApplyFacts(HMENU menu, const MenuFacts& facts) {
    for (int command : RuledCommands())
        EnableIn(menu, command, IsCommandEnabled(command, facts));
    EnableBuiltEntries(menu, facts);
}

} // namespace

HMENU SoftKeyMenu() {
    return reinterpret_cast<HMENU>(SendMessageW(appState.menuBar, SHCMBM_GETSUBMENU, 0, IDM_SOFTKEY_MENU));
}

void UpdateMenuState() {
    const MenuFacts facts = GatherMenuFacts();
    ApplyFacts(SoftKeyMenu(), facts);
    for (int command : toolButtons)
        EnableToolButton(command, IsCommandEnabled(command, facts));
}

void ApplyMenuState(HMENU menu) {
    ApplyFacts(menu, GatherMenuFacts());
}

void RefreshCheckMarks() {
    ApplyCheckMarks(SoftKeyMenu());
    CheckToolButton(IDM_VIEW_FOLDER_TREE, appState.settings.showFolderTree != 0);
    CheckToolButton(IDM_KEY_CTRL, appState.ctrlLatched);
    // This button is greyed while the address bar is hidden, though it would bring it back.
    EnableToolButton(IDM_VIEW_ADDRESS_BAR, appState.commandBands.addressBarShown != 0);
}

void ApplyCheckMarks(HMENU menu) {
    const CheckFacts facts = GatherCheckFacts();
    for (int command : CheckedCommands())
        CheckIn(menu, command, IsCommandChecked(command, facts));
}

void UpdateNavigationItems(bool up, bool back, bool forward) {
    HMENU menu = SoftKeyMenu();
    EnableIn(menu, IDM_TOOLBAR_UP_FOLDER, up);
    EnableIn(menu, IDM_TOOLBAR_BACK, back);
    EnableIn(menu, IDM_TOOLBAR_FORWARD, forward);
}

void UpdatePasteItems(bool canPaste, bool alsoShortcut) {
    EnableIn(SoftKeyMenu(), IDM_TOOLBAR_PASTE, canPaste);
    EnableToolButton(IDM_TOOLBAR_PASTE, canPaste);
    if (alsoShortcut) {
        appState.filesToPaste = canPaste;
        EnableIn(SoftKeyMenu(), IDM_TOOLBAR_PASTE_SHORTCUT, canPaste);
    }
}
