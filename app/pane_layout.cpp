#include "app/pane_layout.h"

#include <algorithm>

#include "app/app_state.h"
#include "common/device_info.h"
#include "common/pointer.h"

namespace {

constexpr int paneGap = 4;
constexpr int addressOverlap = 2; // the panes reach this far up under the address bar
constexpr int splitMargin = 20;   // the border stays this far from the ends
constexpr int leastExtent = splitMargin - paneGap;
constexpr int smallScreenHeight = 220;
constexpr int smallLayoutHeight = 185;

int WindowHeight(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect.bottom - rect.top;
}

/// What lies between the bars.
struct PaneArea {
    int top;
    int height;
};

PaneArea AreaOf(const LayoutInput& input) {
    const int overlap = input.addressBarShown ? addressOverlap : 0;
    const int top = (input.addressBarShown ? input.addressBarHeight : 0) - overlap;
    int height = input.height - (input.addressBarShown ? input.addressBarHeight : 0) -
                 (input.statusBarShown ? input.statusBarHeight : 0) + overlap;
    if (!input.addressBarShown && !input.statusBarShown)
        ++height;
    return {top, height};
}

/// The extent that the tree is given of `whole`: a stored one may be anything, and beyond where the border
/// can be dragged to nobody could bring it back.
int ReachableExtent(std::int32_t stored, int whole) {
    return std::clamp<int>(stored, leastExtent, std::max(leastExtent, whole - splitMargin - 1));
}

LayoutInput CurrentLayout() {
    const Settings& settings = appState.settings;
    LayoutInput input;
    input.width = GetSystemMetrics(SM_CXSCREEN);
    input.height = LayoutHeight(GetSystemMetrics(SM_CYSCREEN), GetSystemMetrics(SM_CYMENU));
    input.addressBarShown = appState.commandBands.addressBarShown != 0;
    input.addressBarHeight = input.addressBarShown ? ce::CommandBar_Height(appState.commandBar) : 0;
    input.statusBarShown = settings.showStatusBar != 0;
    input.statusBarHeight = input.statusBarShown ? WindowHeight(appState.statusBar) : 0;
    input.treeShown = settings.showFolderTree != 0;
    input.sideBySide = settings.viewSide != 0;
    input.treeWidth = ReachableExtent(settings.treeViewWidth, input.width);
    input.treeHeight = ReachableExtent(settings.treeViewHeight, AreaOf(input).height);
    return input;
}

/// Under the address bar the panes are shown as they are placed, so that they come to lie below it.
void PlacePane(HWND pane, const Place& place, bool underAddressBar) {
    if (underAddressBar)
        SetWindowPos(pane, nullptr, place.x, place.y, place.width, place.height,
                     SWP_SHOWWINDOW | SWP_NOZORDER | SWP_NOACTIVATE);
    else
        MoveWindow(pane, place.x, place.y, place.width, place.height, TRUE);
}

} // namespace

PanePlaces ArrangePanes(const LayoutInput& input) {
    PanePlaces places;
    places.addressBar = {0, 0, input.width, input.addressBarHeight};
    places.statusBar = {0, input.height - input.statusBarHeight, input.width, input.statusBarHeight};

    const auto [top, height] = AreaOf(input);
    if (!input.treeShown) {
        places.list = {0, top, input.width, height};
    } else if (input.sideBySide) {
        const int listLeft = input.treeWidth + paneGap;
        places.tree = {0, top, input.treeWidth, height};
        places.list = {listLeft, top, input.width - listLeft, height};
    } else {
        const int treePart = input.treeHeight + paneGap;
        places.tree = {0, top, input.width, input.treeHeight};
        places.list = {0, top + treePart, input.width, height - treePart};
    }
    return places;
}

int LayoutHeight(int screenHeight, int menuHeight) {
    return screenHeight == smallScreenHeight ? smallLayoutHeight : screenHeight - 2 * (menuHeight + 3);
}

int SplitExtent(int extent, int pointer, int press, int extentAtPress, SplitRange range) {
    if (pointer <= range.lowest || pointer >= range.highest)
        return extent;
    return pointer - press + extentAtPress;
}

ShowState ShowStateOf(int word) {
    switch (word > 2 ? word - 90 : word) {
    case 0:
        return ShowState::Minimized;
    case 1:
        return ShowState::Normal;
    default:
        return ShowState::Maximized;
    }
}

void LayoutPanes() {
    if (!appState.fileList.Window() || !appState.folderTree.Window())
        return; // the panes come after the window's first size
    appState.commandBands.toolBarShown = 0;
    const LayoutInput input = CurrentLayout();
    const PanePlaces places = ArrangePanes(input);
    if (input.statusBarShown)
        MoveWindow(appState.statusBar, places.statusBar.x, places.statusBar.y, places.statusBar.width,
                   places.statusBar.height, TRUE);
    if (input.addressBarShown)
        MoveWindow(appState.commandBar, places.addressBar.x, places.addressBar.y, places.addressBar.width,
                   places.addressBar.height, TRUE);
    if (input.treeShown)
        PlacePane(appState.folderTree.Window(), places.tree, input.addressBarShown);
    PlacePane(appState.fileList.Window(), places.list, input.addressBarShown);
    appState.sipFlags = GetSipFlags();
}

void BeginSplit(LPARAM pointer) {
    appState.splitDragging = appState.settings.showFolderTree != 0;
    appState.splitPress = PointOf(pointer);
    const LayoutInput layout = CurrentLayout();
    appState.splitPressWidth = layout.treeWidth;
    appState.splitPressHeight = layout.treeHeight;
}

void DragSplitter(LPARAM pointer) {
    Settings& settings = appState.settings;
    if (settings.viewSide != 0) {
        const SplitRange range{splitMargin, GetSystemMetrics(SM_CXSCREEN) - splitMargin};
        settings.treeViewWidth = SplitExtent(settings.treeViewWidth, PointOf(pointer).x,
                                             appState.splitPress.x, appState.splitPressWidth, range);
    } else {
        RECT tree{};
        RECT list{};
        GetWindowRect(appState.folderTree.Window(), &tree);
        GetWindowRect(appState.fileList.Window(), &list);
        POINT top{0, tree.top};
        POINT bottom{0, list.bottom};
        ScreenToClient(appState.mainWindow, &top);
        ScreenToClient(appState.mainWindow, &bottom);
        const SplitRange range{top.y + splitMargin, bottom.y - splitMargin};
        settings.treeViewHeight = SplitExtent(settings.treeViewHeight, PointOf(pointer).y,
                                              appState.splitPress.y, appState.splitPressHeight, range);
    }
    LayoutPanes();
}

void ApplyPaneFont() {
    const Settings& settings = appState.settings;
    appState.paneFont.Reset();
    auto* font = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    if (settings.fontChange) {
        HDC context = GetDC(appState.mainWindow);
        LOGFONTW description{};
        description.lfHeight = static_cast<LONG>(static_cast<std::int64_t>(settings.fontSize) *
                                                 GetDeviceCaps(context, LOGPIXELSY) / 72);
        description.lfWeight = 1;
        ReleaseDC(appState.mainWindow, context);
        CopyTextTo(description.lfFaceName, settings.fontName.data());
        appState.paneFont.Reset(CreateFontIndirectW(&description));
        font = appState.paneFont.Get();
    }
    SendMessageW(appState.fileList.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    SendMessageW(appState.folderTree.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    InvalidateRect(appState.mainWindow, nullptr, TRUE);
}

void ShowPanes() {
    HWND focus = GetFocus();
    const bool addressShown = appState.commandBands.addressBarShown != 0;
    const bool treeShown = appState.settings.showFolderTree != 0;
    const bool focusLost = (!addressShown && focus && IsChild(appState.commandBar, focus)) ||
                           (!treeShown && focus == appState.folderTree.Window());
    if (focusLost)
        SetFocus(appState.fileList.Window());
    ce::CommandBar_Show(appState.commandBar, addressShown);
    ShowWindow(appState.statusBar, appState.settings.showStatusBar ? SW_SHOW : SW_HIDE);
    ShowWindow(appState.folderTree.Window(), treeShown ? SW_SHOW : SW_HIDE);
    LayoutPanes();
    if (treeShown)
        appState.folderTree.OnShown();
}
