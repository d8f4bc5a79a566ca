// The command bar: a row on top of the program's window that holds one combo box over its whole width.

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"

namespace {

constexpr wchar_t BAR_CLASS[] = L"CommandBar";
constexpr int MARGIN = 1;

HWND ComboOf(HWND bar) {
    return FindWindowExW(bar, nullptr, L"ComboBox", nullptr);
}

int WindowHeight(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area.bottom - area.top;
}

void FitCombo(HWND bar) {
    HWND combo = ComboOf(bar);
    if (!combo)
        return;
    RECT area;
    GetClientRect(bar, &area);
    RECT screen = WorkArea();
    // A combo box takes the height of its list; half the screen leaves the rest of the program in view.
    MoveWindow(combo, MARGIN, MARGIN, area.right - 2 * MARGIN, (screen.bottom - screen.top) / 2, TRUE);
}

LRESULT CALLBACK BarProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        return SendMessageW(GetParent(window), message, wParam, lParam);
    case WM_SIZE:
        FitCombo(window);
        return 0;
    case WM_CLOSE:
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

HWND ce::CommandBar_Create(HINSTANCE, HWND parent, int id) {
    RegisterShellClass(BAR_CLASS, BarProc, GetSysColorBrush(COLOR_BTNFACE));
    RECT area{};
    GetClientRect(parent, &area);
    return ::CreateWindowExW(WS_EX_CONTROLPARENT, BAR_CLASS, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                             0, 0, area.right, GetSystemMetrics(SM_CYMENU), parent,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ShellInstance(), nullptr);
}

HWND ce::CommandBar_InsertComboBox(HWND bar, HINSTANCE instance, int width, UINT style, WORD id, WORD) {
    HWND combo = ::CreateWindowExW(0, L"ComboBox", nullptr, style | WS_CHILD | WS_VISIBLE, MARGIN, MARGIN,
                                   width, GetSystemMetrics(SM_CYMENU), bar,
                                   reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), instance, nullptr);
    if (!combo)
        return nullptr;
    SendMessageW(combo, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    FitCombo(bar);
    RECT area;
    GetClientRect(bar, &area);
    SetWindowPos(bar, nullptr, 0, 0, area.right, WindowHeight(combo) + 2 * MARGIN,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return combo;
}

int ce::CommandBar_Height(HWND bar) {
    return WindowHeight(bar);
}

void ce::CommandBar_Destroy(HWND bar) {
    DestroyWindow(bar);
}

BOOL ce::CommandBar_Show(HWND bar, BOOL show) {
    ShowWindow(bar, show ? SW_SHOW : SW_HIDE);
    return TRUE;
}
