#include "app/address_bar.h"

#include "app/app_state.h"
#include "app/menu_state.h"
#include "common/device_info.h"

namespace {

constexpr WPARAM recentCount = 8;
constexpr int dropHeight = 120; // pixels that the opened list adds

WNDPROC editProcedure = nullptr;

HWND AddressEdit() {
    return GetWindow(appState.addressCombo, GW_CHILD);
}

/// Puts a typed path on top of the list; one that stands there already moves up.
void RememberTyped(const wchar_t* text) {
    HWND combo = appState.addressCombo;
    const LRESULT old =
        SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text));
    if (old != CB_ERR)
        SendMessageW(combo, CB_DELETESTRING, static_cast<WPARAM>(old), 0);
    SendMessageW(combo, CB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(text));
    SendMessageW(combo, CB_DELETESTRING, recentCount, 0);
}

/// Enter goes to what is typed.
LRESULT CALLBACK AddressEditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && wParam == VK_RETURN &&
        !SendMessageW(appState.addressCombo, CB_GETDROPPEDSTATE, 0, 0)) {
        GoToTypedAddress();
        return 0;
    }
    if (message == WM_CHAR && wParam == L'\r')
        return 0; // the edit field would beep
    return CallWindowProcW(editProcedure, window, message, wParam, lParam);
}

} // namespace

void CreateAddressBar() {
    appState.commandBar = ce::CommandBar_Create(appState.instance, appState.mainWindow, 1);
    appState.addressCombo = ce::CommandBar_InsertComboBox(
        appState.commandBar, appState.instance, GetSystemMetrics(SM_CXSCREEN),
        CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP, addressComboId, 0);
    SendMessageW(appState.addressCombo, CB_LIMITTEXT, pathCapacity - 1, 0);
    RECT rect{};
    GetWindowRect(appState.addressCombo, &rect);
    SetWindowPos(appState.addressCombo, nullptr, 0, 0, rect.right - rect.left,
                 rect.bottom - rect.top + dropHeight, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    editProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(AddressEdit(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AddressEditProcedure)));
}

void ShowAddress(std::wstring_view folder) {
    Path path;
    if (folder.empty() || !path.Assign(folder))
        SetWindowTextW(appState.addressCombo, DeviceDisplayName());
    else
        SetWindowTextW(appState.addressCombo, path.Text());
}

bool IsAddressBarShown() {
    return appState.commandBands.addressBarShown != 0;
}

bool FocusAddressBar() {
    if (!IsAddressBarShown())
        return false;
    SetFocus(appState.addressCombo);
    return true;
}

bool IsAddressBeingTyped() {
    HWND edit = AddressEdit();
    return GetFocus() == edit && SendMessageW(edit, EM_GETMODIFY, 0, 0);
}

void GoToTypedAddress() {
    wchar_t text[pathCapacity] = {};
    GetWindowTextW(appState.addressCombo, text, static_cast<int>(pathCapacity));
    if (*text)
        RememberTyped(text);
    SetWindowTextW(appState.addressCombo, text);
    SetFocus(appState.fileList.Window());
    appState.fileList.GoToPath(text);
}

void OnAddressNotification(int code) {
    switch (code) {
    case CBN_SELENDOK:
        appState.fileList.GoFromAddressBar();
        break;
    case CBN_SETFOCUS:
        UpdateMenuState();
        break;
    default:
        break;
    }
}
