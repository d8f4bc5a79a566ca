#include "app/main_window.h"

#include <utility>

#include "app/address_bar.h"
#include "app/app_state.h"
#include "app/commands.h"
#include "app/folder_refresh.h"
#include "app/menu_state.h"
#include "app/notifications.h"
#include "app/pane_layout.h"
#include "app/settings_store.h"
#include "app/start_folder.h"
#include "app/start_up.h"
#include "app/sticky_keys.h"
#include "common/device_info.h"
#include "common/dialog_frame.h"
#include "common/pointer.h"
#include "resources/resource.h"

namespace {

SHACTIVATEINFO activation{sizeof(SHACTIVATEINFO), nullptr, 0, 0, 0, 0};

void OnCreate() {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_BAR_CLASSES | ICC_COOL_CLASSES};
    InitCommonControlsEx(&controls);
}

/// Everything is saved before the windows that know it go.
void OnClose() {
    ReleaseStickyKeys();
    SaveSettings(appState.settings);
    SaveCommandBarState(appState.commandBands);
    SaveRecent(appState.addressCombo);
    ce::CommandBar_Destroy(appState.commandBar);
    DestroyWindow(appState.statusBar);
    appState.fileList.DestroyList();
    appState.folderTree.Destroy();
    appState.paneFont.Reset();
    DestroyWindow(appState.mainWindow);
}

LRESULT OnActivate(WPARAM wParam, LPARAM lParam) {
    if (LOWORD(wParam) == WA_INACTIVE) {
        appState.fileList.dragDrop.Cancel();
        return DefWindowProcW(appState.mainWindow, WM_ACTIVATE, wParam, lParam);
    }
    FocusPane(appState.focusedPane);
    return 0;
}

LRESULT OnSettingChange(HWND window, WPARAM wParam, LPARAM lParam) {
    ce::SHHandleWMSettingChange(window, wParam, lParam, &activation);
    LayoutPanes();
    return 0;
}

LRESULT OnCopyData(LPARAM lParam) {
    Path folder;
    if (!ReadHandOver(reinterpret_cast<const COPYDATASTRUCT*>(lParam), folder))
        return 0;
    const DWORD attributes = ce::GetFileAttributesW(folder.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return 0;
    appState.fileList.GoToPath(folder.View());
    return 0;
}

LRESULT OnTimer(HWND window, WPARAM timer, LPARAM lParam) {
    switch (timer) {
    case treeSyncTimer:
        appState.folderTree.onSyncTimer();
        return 0;
    case refreshTimer:
        RefreshAfterChange();
        return 0;
    default:
        return DefWindowProcW(window, WM_TIMER, timer, lParam);
    }
}

LRESULT OnButtonDown(LPARAM pointer) {
    SetCapture(appState.mainWindow);
    BeginSplit(pointer);
    return 0;
}

LRESULT OnMouseMove(LPARAM pointer) {
    if (appState.splitDragging)
        DragSplitter(pointer);
    else if (appState.fileList.dragDrop.IsActive())
        appState.fileList.dragDrop.Move(PointOf(pointer));
    return 0;
}

LRESULT OnButtonUp() {
    if (appState.fileList.dragDrop.IsActive())
        return appState.fileList.dragDrop.Drop(), 0;
    const bool wasSplitting = std::exchange(appState.splitDragging, false);
    ReleaseCapture();
    if (!wasSplitting)
        return 0;
    SendMessageW(appState.fileList.Window(), LVM_ARRANGE, LVA_DEFAULT, 0);
    InvalidateRect(appState.mainWindow, nullptr, TRUE);
    return 0;
}

/// Another window took the stylus: what was dragged stays where it is.
void OnCaptureLost() {
    appState.splitDragging = false;
    appState.fileList.dragDrop.Cancel();
}

/// A hook that testers of the first builds used; it never left.
LRESULT OnRightButtonDown() {
    MessageBoxW(nullptr, L"CLICK", L"TEST", MB_OK);
    return 0;
}

void OnMenuClosed() {
    appState.menuOpen = false;
    appState.fileList.tapAndHold.AfterMenu(appState.fileList.Window());
    appState.folderTree.OnMenuClosed();
}

LRESULT OnHotKey(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(lParam) == VK_ESCAPE)
        ce::SHSendBackToFocusWindow(WM_HOTKEY, wParam, lParam);
    return 0;
}

void OnSelectionChanged() {
    appState.selectionNoticePosted = false;
    UpdateMenuState();
}

LRESULT CALLBACK MainWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        return OnCreate(), 0;
    case WM_DESTROY:
        return PostQuitMessage(0), 0;
    case WM_CLOSE:
        return OnClose(), 0;
    case WM_SIZE:
        return LayoutPanes(), 0;
    case WM_ACTIVATE:
        return OnActivate(wParam, lParam);
    case WM_SETFOCUS:
        return SetFocus(appState.fileList.Window()), 0;
    case WM_SETTINGCHANGE:
        return OnSettingChange(window, wParam, lParam);
    case WM_COPYDATA:
        return OnCopyData(lParam);
    case WM_COMMAND:
        return OnCommand(wParam, lParam);
    case WM_NOTIFY:
        return OnNotify(wParam, lParam);
    case WM_TIMER:
        return OnTimer(window, wParam, lParam);
    case WM_INITMENUPOPUP:
        return UpdateMenuState(), 0;
    case WM_ENTERMENULOOP:
        appState.menuOpen = true;
        return DefWindowProcW(window, message, wParam, lParam);
    case WM_EXITMENULOOP:
        return OnMenuClosed(), 0;
    case WM_LBUTTONDOWN:
        return OnButtonDown(lParam);
    case WM_MOUSEMOVE:
        return OnMouseMove(lParam);
    case WM_LBUTTONUP:
        return OnButtonUp();
    case WM_CAPTURECHANGED:
        return OnCaptureLost(), 0;
    case WM_RBUTTONDOWN:
        return OnRightButtonDown();
    case WM_DEVICECHANGE:
        return ScheduleRefresh(RefreshCause::DeviceChange), 0;
    case WM_HOTKEY:
        return OnHotKey(wParam, lParam);
    case UM_FOLDERCHANGED:
        return OnFolderChanged(), 0;
    case UM_LOOKAGAIN:
        return OnLookAgain(), 0;
    case UM_SELECTIONCHANGED:
        return OnSelectionChanged(), 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

void CreateMainWindow() {
    appState.sipFlags = GetSipFlags();
    SaveProgramPath();
    GetOsVersion();
    LoadSettings(appState.settings);

    WNDCLASSW windowClass{};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = MainWindowProcedure;
    windowClass.hInstance = appState.instance;
    windowClass.hbrBackground = CreateSolidBrush(GetSysColor(COLOR_BTNFACE));
    windowClass.lpszClassName = instanceName;
    RegisterClassW(&windowClass);

    appState.mainWindow =
        ce::CreateWindowExW(0, instanceName, L"Tarvik File Manager", WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                            CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, appState.instance, nullptr);
    PrepareDialogs(appState.instance, appState.mainWindow);

    HANDLE smallIcon =
        LoadImageW(appState.instance, MAKEINTRESOURCEW(IDI_PROGRAM), IMAGE_ICON, 16, 16, LR_DEFAULTCOLOR);
    HICON bigIcon = LoadIconW(appState.instance, MAKEINTRESOURCEW(IDI_PROGRAM));
    SendMessageW(appState.mainWindow, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon));
    SendMessageW(appState.mainWindow, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(bigIcon));
}

void ShowMainWindow() {
    SHMENUBARINFO menuBar{};
    menuBar.cbSize = sizeof(menuBar);
    menuBar.hwndParent = appState.mainWindow;
    menuBar.nToolBarId = IDR_MENUBAR_MAIN;
    menuBar.hInstRes = appState.instance;
    ce::SHCreateMenuBar(&menuBar);
    appState.menuBar = menuBar.hwndMB;

    LoadCommandBarState(appState.commandBands);
    CreateAddressBar();
    LoadRecent(appState.addressCombo);
    RefreshCheckMarks();
    appState.statusBar = CreateStatusWindowW(WS_CHILD | CCS_BOTTOM, nullptr, appState.mainWindow, 0);
    appState.fileList.CreateList(appState.mainWindow);
    appState.folderTree.create(appState.mainWindow);
    ApplyPaneFont();

    const ShowState state = appState.settings.overlapped ? ShowStateOf(savedWindowState) : ShowState::Normal;
    ShowWindow(appState.mainWindow, SW_SHOW);
    if (state == ShowState::Minimized)
        ShowWindow(appState.mainWindow, SW_MINIMIZE);
    else if (state == ShowState::Maximized)
        ShowWindow(appState.mainWindow, SW_MAXIMIZE);

    ShowPanes();
    FocusPane(Pane::List);
    const Path folder = appState.fileList.CurrentFolder();
    appState.fileList.GoToFolder(folder.View(), treeRescan);
    appState.focusedPane = Pane::List;
}
