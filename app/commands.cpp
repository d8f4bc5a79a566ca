#include "app/commands.h"

#include "app/address_bar.h"
#include "app/menu_state.h"
#include "app/options.h"
#include "app/pane_layout.h"
#include "app/sticky_keys.h"
#include "common/file_facts.h"
#include "fileops/archives.h"
#include "fileops/selection_properties.h"
#include "launch/choose_program.h"
#include "launch/memory_status.h"
#include "launch/network.h"
#include "launch/open_with_parameters.h"
#include "launch/send_to.h"
#include "resources/resource.h"
#include "search/file_search.h"

namespace {

struct Command {
    int id;
    void (*run)(int id);
};

// --- Going somewhere ---

void OnGoTo(int id) {
    const Settings& settings = appState.settings;
    switch (id) {
    case IDM_GOTO_DESKTOP:
        return appState.fileList.GoToPath(settings.desktopPath.data());
    case IDM_GOTO_MY_DOCUMENTS:
        return appState.fileList.GoToPath(settings.myDocumentsPath.data());
    case IDM_GOTO_START_MENU:
        return appState.fileList.GoToPath(settings.startMenuPath.data());
    default:
        return appState.fileList.GoToPath(L"");
    }
}

void OnUpFolder(int) {
    if (IsTreeFocused())
        appState.folderTree.SelectParent();
    else
        appState.fileList.UpOneLevel();
}

void OnOpen(int) {
    if (IsListFocused())
        appState.fileList.OpenEntry(appState.fileList.FirstSelected());
}

void OnOpenOtherwise(int id) {
    if (!IsListFocused())
        return;
    if (id == IDM_OPEN_PARAMETERS)
        openWithParameters();
    else
        ChooseProgramForSelection();
}

void OnExtract(int id) {
    if (!IsListFocused())
        return;
    if (id == IDM_FILE_EXTRACT_HERE)
        ExtractHere();
    else
        ExtractSelection();
}

void OnUserPath(int) {
    appState.fileList.ChangeUserPaths();
}

void OnOrganizeFavorites(int) {
    appState.fileList.OrganizeFavorites();
}

// --- Focus ---

void OnFocusNext(int) {
    if (IsListFocused()) {
        if (!FocusAddressBar())
            SetFocus(appState.folderTree.Window());
    } else if (!IsTreeFocused() && appState.settings.showFolderTree) {
        SetFocus(appState.folderTree.Window());
    } else {
        SetFocus(appState.fileList.Window());
    }
}

void OnFocusPrevious(int) {
    if (IsListFocused() && appState.settings.showFolderTree)
        SetFocus(appState.folderTree.Window());
    else if ((!IsListFocused() && !IsTreeFocused()) || !FocusAddressBar())
        SetFocus(appState.fileList.Window());
}

void OnChangeView(int) {
    if (!appState.settings.showFolderTree) {
        if (IsListFocused())
            appState.fileList.UpOneLevel();
    } else if (IsListFocused()) {
        SetFocus(appState.folderTree.Window());
    } else if (IsTreeFocused()) {
        SetFocus(appState.fileList.Window());
    }
}

// --- What becomes of the selection ---

void OperateOnSelection(int id) {
    FileList& list = appState.fileList;
    switch (id) {
    case IDM_TOOLBAR_COPY:
        return void(list.CopySelection());
    case IDM_TOOLBAR_CUT:
        return void(list.CutSelection());
    case IDM_FILE_SHORTCUT:
        return list.ShortcutsHere();
    case IDM_EDIT_COPY_NAME:
        return list.CopyNameToClipboard();
    case IDM_EDIT_COPY_PATH:
        return list.CopyPathToClipboard();
    case IDM_SENDTO_COPY_TO:
        return list.CopyTo();
    case IDM_SENDTO_MOVE_TO:
        return list.MoveTo();
    case IDM_SENDTO_SHORTCUT_TO:
        return list.ShortcutsTo();
    case IDM_SENDTO_ZIP:
        return CompressSelection();
    case IDM_SENDTO_IR:
        return beamFile();
    case IDM_FAVORITES_ADD:
        return list.AddFavorite();
    case IDM_MENU_PROPERTIES:
        return ShowSelectionProperties();
    default:
        return list.DeleteSelection();
    }
}

void OnSelectedFiles(int id) {
    if (IsListFocused())
        OperateOnSelection(id);
    else if (IsTreeFocused())
        appState.folderTree.OperateOnFolder(OperateOnSelection, id);
}

void OnProperties(int id) {
    if (IsTreeFocused() && appState.folderTree.IsDeviceSelected())
        ShowDeviceProperties();
    else
        OnSelectedFiles(id);
}

void OnFileSearch(int) {
    const Pane pane = IsTreeFocused() ? Pane::Tree : Pane::List;
    RunFileSearch();
    FocusPane(pane);
}

void OnMail(int id) {
    sendByMail(id == IDM_SENDTO_MMS ? MailTransport::Mms : MailTransport::Email);
}

// --- Clipboards: the list's own, and that of an edit field ---

void OnCopyOrCut(int id) {
    if (IsListFocused() || IsTreeFocused())
        return OnSelectedFiles(id);
    SendMessageW(GetFocus(), id == IDM_TOOLBAR_COPY ? WM_COPY : WM_CUT, 0, 0);
    UpdatePasteItems(true, false);
}

void OnPaste(int) {
    if (IsListFocused() || IsTreeFocused())
        appState.fileList.Paste();
    else
        SendMessageW(GetFocus(), WM_PASTE, 0, 0);
}

void OnPasteShortcut(int) {
    appState.fileList.PasteShortcut();
}

// --- View ---

void OnViewStyle(int id) {
    appState.fileList.ApplyViewStyle(id);
}

void OnListStyle(int) {
    appState.fileList.CycleViewStyle();
}

void OnArrange(int id) {
    appState.fileList.OnSortCommand(id);
}

void OnToggleBar(int id) {
    Settings& settings = appState.settings;
    switch (id) {
    case IDM_VIEW_ADDRESS_BAR:
        appState.commandBands.addressBarShown = !appState.commandBands.addressBarShown;
        break;
    case IDM_VIEW_FOLDER_TREE:
        settings.showFolderTree = !settings.showFolderTree;
        break;
    case IDM_VIEW_STATUS_BAR:
        settings.showStatusBar = !settings.showStatusBar;
        break;
    case IDM_VIEW_SIDE:
        settings.viewSide = !settings.viewSide;
        break;
    case IDM_TOOLBAR_HIDE:
        appState.commandBands.toolBarShown = 0;
        break;
    default:
        break;
    }
    ShowPanes();
    RefreshCheckMarks();
    appState.fileList.UpdateStatusTexts();
}

void OnToggleDragDrop(int) {
    appState.settings.dragDrop = !appState.settings.dragDrop;
    RefreshCheckMarks();
}

void OnRefresh(int) {
    appState.folderTree.rebuild();
    appState.fileList.GoToAddress();
    appState.fileList.RebuildMenus();
    InvalidateRect(appState.mainWindow, nullptr, TRUE);
}

// --- Network ---

void OnConnectNetwork(int id) {
    if (connectNetwork())
        OnRefresh(id);
}

void OnDisconnectNetwork(int id) {
    if (!disconnectNetwork())
        return;
    Path folder = appState.fileList.CurrentFolder();
    CutToExisting(folder);
    appState.fileList.GoToFolder(folder.View(), treeSelectOnly);
    OnRefresh(id);
}

// --- Selection ---

void OnSelection(int id) {
    switch (id) {
    case IDM_EDIT_SELECT_ALL:
        return appState.fileList.SelectAll();
    case IDM_EDIT_REVERSE_SELECTION:
        return appState.fileList.InvertSelection();
    default:
        return appState.fileList.ReleaseSelection();
    }
}

// --- Naming ---

void OnRename(int) {
    if (IsTreeFocused())
        appState.folderTree.BeginRename();
    else if (IsListFocused())
        appState.fileList.BeginRename();
}

void OnNewFolder(int) {
    SetFocus(appState.fileList.Window());
    appState.fileList.NewFolder();
}

// --- Program ---

void OnUserManual(int) {
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof(info);
    info.lpVerb = L"open";
    info.lpFile = L"\\Windows\\File Manager_user_manual.htm";
    info.lpParameters = L"\\Windows\\iexplore.exe"; // the browser that phones open pages with
    info.nShow = SW_SHOW;
    if (!ce::ShellExecuteEx(&info))
        MessageBoxW(appState.mainWindow,
                    L"If you can't open user manual, please open it under installation directory.", L"Prompt",
                    MB_OK);
}

/// Posted, so that a pane whose key this was is done with it before it goes.
void OnExit(int) {
    PostMessageW(appState.mainWindow, WM_CLOSE, 0, 0);
}

void OnStickyKey(int id) {
    ToggleStickyKey(id == IDM_KEY_CTRL ? StickyKey::Ctrl : StickyKey::Shift);
}

constexpr Command commandTable[] = {
    {IDM_SOFTKEY_CHANGE_VIEW, OnChangeView},
    {IDM_FOCUS_NEXT, OnFocusNext},
    {IDM_FOCUS_PREV, OnFocusPrevious},

    {IDM_FILE_OPEN, OnOpen},
    {IDM_OPEN_PARAMETERS, OnOpenOtherwise},
    {IDM_OPEN_CHOOSE_PROGRAM, OnOpenOtherwise},
    {IDM_FILE_EXTRACT_TO, OnExtract},
    {IDM_FILE_EXTRACT_HERE, OnExtract},
    {IDM_FILE_RENAME, OnRename},
    {IDM_FILE_NEW_FOLDER, OnNewFolder},
    {IDM_FILE_SHORTCUT, OnSelectedFiles},
    {IDM_MENU_REFRESH, OnRefresh},
    {IDM_MENU_EXIT, OnExit},
    {IDM_HELP_USER_MANUAL, OnUserManual},

    {IDM_TOOLBAR_COPY, OnCopyOrCut},
    {IDM_TOOLBAR_CUT, OnCopyOrCut},
    {IDM_TOOLBAR_PASTE, OnPaste},
    {IDM_TOOLBAR_PASTE_SHORTCUT, OnPasteShortcut},
    {IDM_EDIT_COPY_NAME, OnSelectedFiles},
    {IDM_EDIT_COPY_PATH, OnSelectedFiles},
    {IDM_SENDTO_COPY_TO, OnSelectedFiles},
    {IDM_SENDTO_MOVE_TO, OnSelectedFiles},
    {IDM_SENDTO_SHORTCUT_TO, OnSelectedFiles},
    {IDM_SENDTO_ZIP, OnSelectedFiles},
    {IDM_SENDTO_EMAIL, OnMail},
    {IDM_SENDTO_MMS, OnMail},
    {IDM_SENDTO_IR, OnSelectedFiles},
    {IDM_TOOLS_BEAM, [](int) { beamNothing(); }},
    {IDM_TOOLS_PC_LINK, [](int) { StartPcLink(); }},
    {IDM_TOOLS_ACTIVESYNC, [](int) { StartActiveSync(); }},
    {IDM_FILE_DELETE, OnSelectedFiles},
    {IDM_MENU_PROPERTIES, OnProperties},
    {IDM_FILE_SEARCH, OnFileSearch},
    {IDM_EDIT_SELECT_ALL, OnSelection},
    {IDM_EDIT_REVERSE_SELECTION, OnSelection},
    {IDM_EDIT_RELEASE_SELECTION, OnSelection},
    {IDM_KEY_CTRL, OnStickyKey},
    {IDM_KEY_SHIFT, OnStickyKey},

    {IDM_VIEW_LARGE, OnViewStyle},
    {IDM_VIEW_SMALL, OnViewStyle},
    {IDM_VIEW_LIST, OnViewStyle},
    {IDM_VIEW_DETAILED, OnViewStyle},
    {IDM_VIEW_DETAILED_LINE, OnViewStyle},
    {IDM_TOOLBAR_LIST_STYLE, OnListStyle},
    {IDM_ARRANGE_NAME, OnArrange},
    {IDM_ARRANGE_TYPE, OnArrange},
    {IDM_ARRANGE_SIZE, OnArrange},
    {IDM_ARRANGE_DATE, OnArrange},
    {IDM_ARRANGE_REVERSE, OnArrange},
    {IDM_VIEW_ADDRESS_BAR, OnToggleBar},
    {IDM_VIEW_FOLDER_TREE, OnToggleBar},
    {IDM_VIEW_STATUS_BAR, OnToggleBar},
    {IDM_VIEW_SIDE, OnToggleBar},
    {IDM_TOOLBAR_HIDE, OnToggleBar},
    {IDM_VIEW_DRAG_DROP, OnToggleDragDrop},
    {IDM_VIEW_OPTIONS, [](int) { ShowOptions(); }},

    {IDM_TOOLBAR_GO_TO, [](int) { GoToTypedAddress(); }},
    {IDM_TOOLBAR_BACK, [](int) { appState.fileList.GoBack(); }},
    {IDM_TOOLBAR_FORWARD, [](int) { appState.fileList.GoForward(); }},
    {IDM_TOOLBAR_UP_FOLDER, OnUpFolder},
    {IDM_GOTO_DESKTOP, OnGoTo},
    {IDM_GOTO_DEVICE, OnGoTo},
    {IDM_GOTO_MY_DOCUMENTS, OnGoTo},
    {IDM_GOTO_START_MENU, OnGoTo},
    {IDM_NETWORK_CONNECT, OnConnectNetwork},
    {IDM_NETWORK_DISCONNECT, OnDisconnectNetwork},
    {IDM_TOOLS_MEMORY_STATUS, [](int) { showMemoryStatus(); }},
    {IDM_GOTO_USER_PATH, OnUserPath},
    {IDM_FAVORITES_ADD, OnSelectedFiles},
    {IDM_FAVORITES_ORGANIZE, OnOrganizeFavorites},
};

void RunCommand(int id) {
    for (const Command& command : commandTable) {
        if (command.id == id)
            return command.run(id);
    }
}

/// A menu that a hold opened leaves the pane in between: the entries of before selected, a name in edit.
void EndTapAndHold() {
    appState.fileList.tapAndHold.RestoreStep(appState.fileList.Window());
    appState.folderTree.EndEditStep();
}

/// The entries built at run time, by their ranges. True when `id` is one of them.
bool RunBuiltEntry(int id) {
    if (id >= IDM_SENDTO_FIRST && id < IDM_SENDTO_FIRST + BUILT_ENTRY_LIMIT) {
        launchPreferred(id - IDM_SENDTO_FIRST);
        return true;
    }
    if (id >= IDM_USERPATH_FIRST && id < IDM_USERPATH_FIRST + BUILT_ENTRY_LIMIT) {
        appState.fileList.GoToUserPath(id - IDM_USERPATH_FIRST);
        return true;
    }
    if (id >= IDM_FAVORITE_FIRST && id < IDM_FAVORITE_FIRST + appState.fileList.favorites.Count()) {
        appState.fileList.GoToFavorite(id - IDM_FAVORITE_FIRST);
        return true;
    }
    return false;
}

} // namespace

LRESULT OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    appState.folderTree.FlushPendingSync();
    if (RunBuiltEntry(id))
        return 0;
    EndTapAndHold();
    RunCommand(appState.fileList.FilterSearchCommand(id));
    EndTapAndHold();
    if (lParam && reinterpret_cast<HWND>(lParam) == appState.addressCombo)
        OnAddressNotification(HIWORD(wParam));
    return 0;
}

bool IsListFocused() {
    HWND focus = GetFocus();
    return focus && focus == appState.fileList.Window();
}

bool IsTreeFocused() {
    HWND focus = GetFocus();
    return focus && focus == appState.folderTree.Window();
}

void FocusPane(Pane pane) {
    const bool tree = pane == Pane::Tree && appState.settings.showFolderTree;
    SetFocus(tree ? appState.folderTree.Window() : appState.fileList.Window());
}
