// The strip on top of the screen: the title of the program's window in front, and the time.

#include <array>

#include "platform/desktop/device_shell.h"
#include "platform/desktop/look.h"

namespace {

constexpr wchar_t STRIP_CLASS[] = L"title_strip";
constexpr UINT_PTR CLOCK_TIMER = 1;
constexpr UINT CLOCK_PERIOD_MS = 1000;
constexpr int MARGIN = 4;
constexpr int ICON_SIZE = 16;

using Text = std::array<wchar_t, 260>;

HWND strip;
HWND titledWindow;
Text shownClock;

/// The nearest of the window and its owners that has a title; null when there is none.
HWND TitledOwner(HWND window) {
    while (IsWindow(window) && GetWindowTextLengthW(window) == 0)
        window = GetWindow(window, GW_OWNER);
    return IsWindow(window) ? window : nullptr;
}

Text ClockText() {
    Text text{};
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, nullptr, nullptr, text.data(),
                   static_cast<int>(text.size()));
    return text;
}

/// Draws `text` at the right end of `area` and takes its place from it.
void DrawAtRight(HDC context, RECT* area, const wchar_t* text) {
    DrawLabel(context, text, *area, DT_RIGHT, RGB(255, 255, 255));
    area->right -= LabelWidth(context, text) + 2 * MARGIN;
}

/// Draws the titled window's small icon at the left end of `area`; false when it has none.
bool DrawSmallIcon(HDC context, const RECT& area) {
    HWND titled = TitledOwner(titledWindow);
    auto icon = reinterpret_cast<HICON>(titled ? SendMessageW(titled, WM_GETICON, ICON_SMALL, 0) : 0);
    int top = area.top + (area.bottom - area.top - ICON_SIZE) / 2;
    return icon && DrawIconEx(context, area.left, top, icon, ICON_SIZE, ICON_SIZE, 0, nullptr, DI_NORMAL);
}

void DrawStrip(HWND window, HDC context, const RECT& area) {
    DrawBand(context, area, BAND_COLORS);

    RECT rest{area.left + MARGIN, area.top, area.right - MARGIN, area.bottom};
    shownClock = ClockText();
    DrawAtRight(context, &rest, shownClock.data());
    if (InputPanelIsUp())
        DrawAtRight(context, &rest, L"abc");

    Text title{};
    GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
    // On the smallest screen the title needs the icon's place.
    int widthWithIcon = ICON_SIZE + MARGIN + LabelWidth(context, title.data());
    if (widthWithIcon <= rest.right - rest.left && DrawSmallIcon(context, rest))
        rest.left += ICON_SIZE + MARGIN;
    DrawLabel(context, title.data(), rest, DT_LEFT, RGB(255, 255, 255));
}

LRESULT CALLBACK StripProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        PaintAtOnce(window, DrawStrip);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_TIMER:
        if (ClockText() != shownClock)
            InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE)
            PassActivationOn();
        return 0;
    case WM_CLOSE:
    case WM_SYSCOMMAND:
    case WM_CONTEXTMENU:
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void CreateStrip() {
    RegisterShellClass(STRIP_CLASS, StripProc);
    strip = CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, STRIP_CLASS, nullptr, WS_POPUP, 0, 0,
                            GetSystemMetrics(SM_CXSCREEN), ShellBarHeights().titleStrip, nullptr, nullptr,
                            ShellInstance(), nullptr);
    SetTimer(strip, CLOCK_TIMER, CLOCK_PERIOD_MS, nullptr);
    ShowWindow(strip, SW_SHOWNOACTIVATE);
}

} // namespace

bool IsTitleStrip(HWND window) {
    return strip && window == strip;
}

void ShowTitleOf(HWND window) {
    if (!strip)
        CreateStrip();
    titledWindow = window;
    // Another program's window may have covered it.
    SetWindowPos(strip, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    RefreshTitle();
}

void RefreshTitle() {
    if (!strip)
        return;
    Text title{};
    GetWindowTextW(TitledOwner(titledWindow), title.data(), static_cast<int>(title.size()));
    SetWindowTextW(strip, title.data());
    InvalidateRect(strip, nullptr, FALSE);
}
