// The input panel. A desktop has a keyboard, so nothing is shown and the whole work area stays visible; but
// the program is told of every change as on the phone, and the title strip shows the state.

#include <cstddef>

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"

namespace {

constexpr WPARAM SPI_SETSIPINFO_ = 0xE0;

bool panelUp;

BOOL CALLBACK TellWindow(HWND window, LPARAM) {
    SendMessageW(window, WM_SETTINGCHANGE, SPI_SETSIPINFO_, 0);
    return TRUE;
}

bool IsEditField(HWND window) {
    wchar_t className[8]{};
    GetClassNameW(window, className, 8);
    return _wcsicmp(className, L"Edit") == 0 && !(GetWindowLongW(window, GWL_STYLE) & ES_READONLY);
}

} // namespace

bool InputPanelIsUp() {
    return panelUp;
}

BOOL ce::SipGetInfo(SIPINFO* info) {
    if (!info || info->cbSize < offsetof(SIPINFO, dwImDataSize))
        return FALSE;
    RECT area = WorkArea();
    info->fdwFlags = SIPF_DOCKED | (panelUp ? SIPF_ON : SIPF_OFF);
    info->rcVisibleDesktop = area;
    info->rcSipRect = {area.left, area.bottom, area.right, area.bottom};
    return TRUE;
}

BOOL ce::SipShowIM(DWORD flags) {
    bool up = flags & SIPF_ON;
    if (up == panelUp)
        return TRUE;
    panelUp = up;
    RefreshTitle();
    EnumThreadWindows(GetCurrentThreadId(), TellWindow, 0);
    return TRUE;
}

BOOL ce::SHHandleWMSettingChange(HWND, WPARAM wParam, LPARAM, SHACTIVATEINFO* info) {
    if (!info || info->cbSize != sizeof(SHACTIVATEINFO))
        return FALSE;
    if (wParam == SPI_SETSIPINFO_)
        info->fSipUp = panelUp;
    return TRUE;
}

BOOL ce::SHHandleWMActivate(HWND, WPARAM wParam, LPARAM, SHACTIVATEINFO* info, DWORD) {
    if (!info || info->cbSize != sizeof(SHACTIVATEINFO))
        return FALSE;
    info->fActive = LOWORD(wParam) != WA_INACTIVE;
    if (info->fActive) {
        ce::SipShowIM(info->fSipOnDeactivation ? SIPF_ON : SIPF_OFF);
    } else {
        info->hwndLastFocus = GetFocus();
        info->fSipOnDeactivation = panelUp;
    }
    return TRUE;
}

void ce::SHSendBackToFocusWindow(UINT message, WPARAM, LPARAM lParam) {
    HWND focus = GetFocus();
    if (!focus || message != WM_HOTKEY || HIWORD(lParam) != VK_TBACK)
        return;
    if (IsEditField(focus))
        SendMessageW(focus, WM_CHAR, VK_BACK, 1);
    else
        PassBackKeyOn(focus);
}
