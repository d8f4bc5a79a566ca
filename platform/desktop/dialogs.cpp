#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/subclass.h"

namespace {

constexpr LONG FRAME_STYLES =
    WS_CAPTION | WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_SYSMENU | DS_MODALFRAME;
constexpr LONG FRAME_EX_STYLES = WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;
constexpr DWORD SIZE_FLAGS = SHIDIF_SIZEDLG | SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_FULLSCREENNOMENUBAR;
constexpr wchar_t PHONE_DIALOG[] = L"TarvikPhoneDialog";

/// The phone's dialogs are white. What the dialog has coloured itself stays as it is.
LRESULT CALLBACK WhiteDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY)
        RemovePropW(dialog, PHONE_DIALOG);
    LRESULT brush = CallNextProc(WhiteDialogProc, dialog, message, wParam, lParam);
    bool asksColor = message == WM_CTLCOLORDLG || message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN;
    if (!asksColor || brush != reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE)))
        return brush;
    SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
}

void FillScreen(HWND dialog, bool withMenuBar) {
    RECT area = WorkArea();
    if (!withMenuBar)
        area.bottom += ShellBarHeights().softKeys;
    RemoveFrame(dialog);
    SetWindowPos(dialog, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void AddEmptyMenuBar(HWND dialog) {
    SHMENUBARINFO bar{};
    bar.cbSize = sizeof(bar);
    bar.hwndParent = dialog;
    bar.dwFlags = SHCMBF_EMPTYBAR;
    ce::SHCreateMenuBar(&bar);
}

} // namespace

bool IsPhoneDialog(HWND window) {
    return GetPropW(window, PHONE_DIALOG) != nullptr;
}

void RemoveFrame(HWND dialog) {
    SetWindowLongW(dialog, GWL_STYLE, GetWindowLongW(dialog, GWL_STYLE) & ~FRAME_STYLES);
    SetWindowLongW(dialog, GWL_EXSTYLE, GetWindowLongW(dialog, GWL_EXSTYLE) & ~FRAME_EX_STYLES);
}

BOOL ce::SHInitDialog(SHINITDLGINFO* info) {
    if (!info || !(info->dwMask & SHIDIM_FLAGS) || !IsWindow(info->hDlg))
        return FALSE;
    FollowWindow(info->hDlg);
    Subclass(info->hDlg, WhiteDialogProc);
    SetPropW(info->hDlg, PHONE_DIALOG, reinterpret_cast<HANDLE>(1));
    if (info->dwFlags & SIZE_FLAGS)
        FillScreen(info->hDlg, !(info->dwFlags & SHIDIF_FULLSCREENNOMENUBAR));
    if (info->dwFlags & SHIDIF_EMPTYMENU)
        AddEmptyMenuBar(info->hDlg);
    if (info->dwFlags & SHIDIF_SIPDOWN)
        ce::SipShowIM(SIPF_OFF);
    return TRUE;
}
