// The soft-key bar at the screen's bottom. Each window has its own; it belongs to its window, so that it lies
// above the bars of the windows behind and goes when its window goes.

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/desktop/device_shell.h"
#include "platform/desktop/look.h"
#include "platform/desktop/menu_bar_layout.h"

namespace {

constexpr wchar_t BAR_CLASS[] = L"menu_worker";
constexpr int NO_KEY = -1;
constexpr int MARGIN = 4;
constexpr COLORREF TEXT_COLOR = RGB(255, 255, 255);
constexpr COLORREF GREYED_COLOR = RGB(128, 160, 212);

struct OverriddenKey {
    WPARAM key;
    UINT flags;
};

struct MenuBar {
    HWND window = nullptr;
    HWND parent = nullptr;
    MenuBarLayout layout;
    int pressedKey = NO_KEY;
    bool hidden = false;
    std::array<OverriddenKey, 3> overrides{{{VK_TBACK, 0}, {VK_TSOFT1, 0}, {VK_TSOFT2, 0}}};
};

std::vector<std::unique_ptr<MenuBar>> bars; // in the order they were made

/// The bar behind a window; null also for windows that only have the same class.
MenuBar* BarOf(HWND window) {
    auto found = std::ranges::find_if(bars, [window](const auto& bar) { return bar->window == window; });
    return found == bars.end() ? nullptr : found->get();
}

MenuBar* BarOfParent(HWND parent) {
    auto found = std::ranges::find_if(bars, [parent](const auto& bar) { return bar->parent == parent; });
    return found == bars.end() ? nullptr : found->get();
}

HWND RootOf(HWND window) {
    return GetAncestor(window, GA_ROOT);
}

bool TakesInput(const MenuBar& bar) {
    return IsWindowVisible(bar.window) && IsWindowVisible(bar.parent) && IsWindowEnabled(RootOf(bar.parent));
}

MenuBarKey* KeyOfCommand(MenuBar& bar, WPARAM command) {
    auto end = bar.layout.keys.begin() + bar.layout.keyCount;
    auto found = std::find_if(bar.layout.keys.begin(), end,
                              [command](const MenuBarKey& key) { return key.command == command; });
    return found == end ? nullptr : &*found;
}

bool IsEnabled(const MenuBarKey& key) {
    return (key.state & (TBSTATE_ENABLED | TBSTATE_HIDDEN | TBSTATE_INDETERMINATE)) == TBSTATE_ENABLED;
}

void SetState(MenuBar& bar, MenuBarKey& key, int state) {
    key.state = static_cast<BYTE>(state);
    InvalidateRect(bar.window, nullptr, FALSE);
}

void SetPressedKey(HWND window, int key) {
    MenuBar* bar = BarOf(window);
    if (!bar || bar->pressedKey == key)
        return;
    bar->pressedKey = key;
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
}

RECT KeyArea(const RECT& area, int key) {
    int middle = (area.left + area.right) / 2;
    return key == 0 ? RECT{area.left, area.top, middle, area.bottom}
                    : RECT{middle, area.top, area.right, area.bottom};
}

/// The key at a point of the bar's client area.
int KeyAt(HWND window, LPARAM position) {
    POINT point{static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    RECT area;
    GetClientRect(window, &area);
    MenuBar* bar = BarOf(window);
    for (int key = 0; bar && key < bar->layout.keyCount; ++key) {
        RECT keyArea = KeyArea(area, key);
        if (PtInRect(&keyArea, point))
            return key;
    }
    return NO_KEY;
}

void DrawBar(HWND window, HDC context, const RECT& area) {
    DrawBand(context, area, BAND_COLORS);
    MenuBar* bar = BarOf(window);
    for (int i = 0; bar && i < bar->layout.keyCount; ++i) {
        const MenuBarKey& key = bar->layout.keys[i];
        RECT keyArea = KeyArea(area, i);
        if (bar->pressedKey == i)
            DrawBand(context, keyArea, PRESSED_BAND_COLORS);
        if (key.state & TBSTATE_HIDDEN)
            continue;
        InflateRect(&keyArea, -MARGIN, 0);
        bool live = IsEnabled(key) && IsWindowEnabled(RootOf(bar->parent));
        DrawLabel(context, key.text.data(), keyArea, DT_CENTER, live ? TEXT_COLOR : GREYED_COLOR);
    }
}

/// Opens the key's popup upwards from the bar, at the key's side of the screen.
void TrackPopup(HWND window, HWND parent, HMENU popup, int key) {
    RECT area;
    GetWindowRect(window, &area);
    UINT side = key == 0 ? TPM_LEFTALIGN : TPM_RIGHTALIGN;
    SetPressedKey(window, key);
    TrackPopupMenuEx(popup, side | TPM_BOTTOMALIGN, key == 0 ? area.left : area.right, area.top, parent,
                     nullptr);
    SetPressedKey(window, NO_KEY);
}

/// Does what the key is for. The bar may be gone afterwards.
void PressKey(HWND window, WPARAM number) {
    MenuBar* bar = BarOf(window);
    if (!bar || number >= static_cast<WPARAM>(bar->layout.keyCount) || !TakesInput(*bar))
        return;
    const MenuBarKey& key = bar->layout.keys[number];
    if (!IsEnabled(key))
        return;
    if (!key.opensPopup)
        SendMessageW(bar->parent, WM_COMMAND, MAKEWPARAM(key.command, 0), reinterpret_cast<LPARAM>(window));
    else if (IsMenu(key.popup))
        TrackPopup(window, bar->parent, key.popup, static_cast<int>(number));
}

void BeginClick(HWND window, LPARAM position) {
    int key = KeyAt(window, position);
    if (key == NO_KEY)
        return;
    SetCapture(window);
    SetPressedKey(window, key);
}

void EndClick(HWND window, LPARAM position) {
    MenuBar* bar = BarOf(window);
    if (!bar || bar->pressedKey == NO_KEY)
        return;
    int key = bar->pressedKey;
    ReleaseCapture();
    SetPressedKey(window, NO_KEY);
    if (KeyAt(window, position) == key)
        PressKey(window, static_cast<WPARAM>(key));
}

LRESULT SetSubMenu(MenuBar& bar, WPARAM command, HMENU popup) {
    MenuBarKey* key = KeyOfCommand(bar, command);
    if (!key || !IsMenu(popup))
        return 0;
    key->opensPopup = true;
    return reinterpret_cast<LRESULT>(std::exchange(key->popup, popup));
}

LRESULT GetSubMenuOf(MenuBar& bar, WPARAM command) {
    MenuBarKey* key = KeyOfCommand(bar, command);
    return reinterpret_cast<LRESULT>(key ? key->popup : nullptr);
}

LRESULT OverrideKey(MenuBar& bar, WPARAM key, LPARAM lParam) {
    UINT mask = LOWORD(lParam);
    for (OverriddenKey& overridden : bar.overrides) {
        if (overridden.key != key)
            continue;
        overridden.flags = (overridden.flags & ~mask) | (HIWORD(lParam) & mask);
        return TRUE;
    }
    return FALSE;
}

/// The tool-bar messages that take no pointer: bars can be asked from other processes.
LRESULT AnswerKeyMessage(MenuBar& bar, UINT message, WPARAM command, LPARAM lParam) {
    MenuBarKey* key = KeyOfCommand(bar, command);
    switch (message) {
    case TB_ISBUTTONENABLED:
        return key && IsEnabled(*key);
    case TB_GETSTATE:
        return key ? key->state : -1;
    case TB_SETSTATE:
        if (key)
            SetState(bar, *key, LOBYTE(lParam));
        return key != nullptr;
    case TB_ENABLEBUTTON:
        if (key)
            SetState(bar, *key,
                     LOWORD(lParam) ? key->state | TBSTATE_ENABLED : key->state & ~TBSTATE_ENABLED);
        return key != nullptr;
    }
    return 0;
}

LRESULT AnswerBarMessage(MenuBar& bar, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case SHCMBM_SETSUBMENU:
        return SetSubMenu(bar, wParam, reinterpret_cast<HMENU>(lParam));
    case SHCMBM_GETSUBMENU:
        return GetSubMenuOf(bar, static_cast<WPARAM>(lParam));
    case SHCMBM_GETMENU:
        return reinterpret_cast<LRESULT>(bar.layout.menu.Get());
    case SHCMBM_OVERRIDEKEY:
        return OverrideKey(bar, wParam, lParam);
    case TB_BUTTONCOUNT:
        return bar.layout.keyCount;
    }
    return AnswerKeyMessage(bar, message, wParam, lParam);
}

void Forget(HWND window) {
    if (MenuBar* bar = BarOf(window); bar && bar->pressedKey != NO_KEY)
        EndMenu();
    std::erase_if(bars, [window](const auto& bar) { return bar->window == window; });
}

LRESULT CALLBACK BarProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        PaintAtOnce(window, DrawBar);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE)
            PassActivationOn();
        return 0;
    case WM_LBUTTONDOWN:
        BeginClick(window, lParam);
        return 0;
    case WM_LBUTTONUP:
        EndClick(window, lParam);
        return 0;
    case WM_CAPTURECHANGED:
        SetPressedKey(window, NO_KEY);
        return 0;
    case UM_PRESS_SOFT_KEY:
        PressKey(window, wParam);
        return 0;
    case WM_RBUTTONUP: // would reach the window behind as a call for its context menu
    case WM_CONTEXTMENU:
    case WM_SYSCOMMAND:
    case WM_CLOSE:
        return 0;
    case WM_NCDESTROY:
        Forget(window);
        break;
    }
    if (MenuBar* bar = BarOf(window); bar && message >= WM_USER && message < WM_APP)
        return AnswerBarMessage(*bar, message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND CreateBarWindow(HWND parent) {
    RegisterShellClass(BAR_CLASS, BarProc);
    return ::CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, BAR_CLASS, nullptr, WS_POPUP, 0,
                             WorkArea().bottom, GetSystemMetrics(SM_CXSCREEN), ShellBarHeights().softKeys,
                             RootOf(parent), nullptr, ShellInstance(), nullptr);
}

/// The bar's own text is that of its keys, for those who look at the screen from outside.
void NameBar(const MenuBar& bar) {
    std::array<wchar_t, 130> name{};
    for (int i = 0; i < bar.layout.keyCount; ++i) {
        if (i > 0)
            lstrcatW(name.data(), L"\t");
        lstrcatW(name.data(), bar.layout.keys[i].text.data());
    }
    SetWindowTextW(bar.window, name.data());
}

} // namespace

BOOL ce::SHCreateMenuBar(SHMENUBARINFO* info) {
    if (!info || info->cbSize != sizeof(SHMENUBARINFO) || !IsWindow(info->hwndParent))
        return FALSE;
    info->hwndMB = nullptr;
    std::optional<MenuBarLayout> layout = ReadMenuBarLayout(*info);
    if (layout)
        info->hwndMB = MakeMenuBar(info->hwndParent, std::move(*layout), info->dwFlags & SHCMBF_HIDDEN);
    return info->hwndMB != nullptr;
}

HWND ce::SHFindMenuBar(HWND parent) {
    MenuBar* bar = BarOfParent(parent);
    return bar ? bar->window : nullptr;
}

HWND MakeMenuBar(HWND parent, MenuBarLayout layout, bool hidden) {
    HWND window = CreateBarWindow(parent);
    if (!window)
        return nullptr;
    if (MenuBar* old = BarOfParent(parent))
        DestroyWindow(old->window);

    auto bar = std::make_unique<MenuBar>();
    bar->window = window;
    bar->parent = parent;
    bar->layout = std::move(layout);
    bar->hidden = hidden;
    NameBar(*bar);
    bars.push_back(std::move(bar));
    FollowWindow(parent);
    UpdateMenuBar(parent, true);
    return window;
}

HWND FrontMenuBar() {
    auto front = std::find_if(bars.rbegin(), bars.rend(), [](const auto& bar) { return TakesInput(*bar); });
    return front == bars.rend() ? nullptr : (*front)->window;
}

bool IsMenuBar(HWND window) {
    return BarOf(window) != nullptr;
}

void ForgetMenuBarClass() {
    UnregisterClassW(BAR_CLASS, ShellInstance());
}

HWND MenuBarParent(HWND window) {
    MenuBar* bar = BarOf(window);
    return bar ? bar->parent : nullptr;
}

UINT KeyOverride(HWND window, WPARAM key) {
    MenuBar* bar = BarOf(window);
    if (!bar)
        return 0;
    auto found = std::ranges::find(bar->overrides, key, &OverriddenKey::key);
    return found == bar->overrides.end() ? 0 : found->flags;
}

void UpdateMenuBar(HWND parent, bool raise) {
    MenuBar* bar = BarOfParent(parent);
    if (!bar)
        return;
    bool isShown = IsWindowVisible(bar->window);
    bool show = bar->hidden ? isShown : IsWindowVisible(parent) != FALSE;
    if (raise || show != isShown)
        SetWindowPos(bar->window, HWND_TOP, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE |
                         (show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW | SWP_NOZORDER));
    InvalidateRect(bar->window, nullptr, FALSE);
}
