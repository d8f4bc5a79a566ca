// The folders on the way to the one that a file dialog of the host shows, from the device's root down. They
// stand where the dialog has the computer's drives, which a phone does not have.

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/rooted_path.h"
#include "platform/desktop/subclass.h"

#include <dlgs.h>

namespace {

/// The folder that the dialog shows, with its drive; empty when that is none of the file system's.
std::vector<wchar_t> FolderShown(HWND dialog) {
    const LRESULT size = SendMessageW(dialog, CDM_GETFOLDERPATH, 0, 0);
    if (size <= 0)
        return {};
    std::vector<wchar_t> folder(static_cast<std::size_t>(size) + 1);
    SendMessageW(dialog, CDM_GETFOLDERPATH, folder.size(), reinterpret_cast<LPARAM>(folder.data()));
    return folder;
}

/// The button that leads to the folder above, the first of the dialog's tool bar.
void EnableWayUp(HWND dialog, bool enabled) {
    HWND toolBar = FindWindowExW(dialog, nullptr, TOOLBARCLASSNAMEW, nullptr);
    TBBUTTON button{};
    for (int i = 0; SendMessageW(toolBar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button)); ++i) {
        if (button.fsStyle & TBSTYLE_SEP)
            continue;
        SendMessageW(toolBar, TB_ENABLEBUTTON, button.idCommand, enabled);
        return;
    }
}

/// Shows the folder that is chosen among the places, as if its name was typed.
void GoToChosenPlace(HWND dialog, HWND places) {
    const auto chosen = SendMessageW(places, CB_GETCURSEL, 0, 0);
    std::vector<wchar_t> place(static_cast<std::size_t>(SendMessageW(places, CB_GETLBTEXTLEN, chosen, 0)) +
                               1);
    SendMessageW(places, CB_GETLBTEXT, chosen, reinterpret_cast<LPARAM>(place.data()));
    HWND name = NameField(dialog);
    std::vector<wchar_t> typed(static_cast<std::size_t>(GetWindowTextLengthW(name)) + 1);
    GetWindowTextW(name, typed.data(), static_cast<int>(typed.size()));
    SetWindowTextW(name, FullPath(place.data()).data());
    SendMessageW(dialog, WM_COMMAND, IDOK, 0);
    SetWindowTextW(name, typed.data());
}

LRESULT CALLBACK PlacesProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && wParam == MAKEWPARAM(FILE_DIALOG_PLACES, CBN_SELENDOK)) {
        GoToChosenPlace(dialog, reinterpret_cast<HWND>(lParam));
        return 0;
    }
    return CallNextProc(PlacesProc, dialog, message, wParam, lParam);
}

} // namespace

void MakePlaces(HWND dialog) {
    HWND drives = GetDlgItem(dialog, cmb2);
    ShowWindow(drives, SW_HIDE);
    HWND places = CreateWindowExW(0, WC_COMBOBOXW, nullptr,
                                  WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0, 0, 0,
                                  0, dialog, reinterpret_cast<HMENU>(FILE_DIALOG_PLACES), nullptr, nullptr);
    SendMessageW(places, WM_SETFONT, SendMessageW(dialog, WM_GETFONT, 0, 0), FALSE);
    SetWindowPos(places, drives, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Subclass(dialog, PlacesProc);
}

void ShowPlaces(HWND dialog) {
    const std::vector<wchar_t> folder = FolderShown(dialog);
    const std::wstring_view path = folder.empty() ? std::wstring_view() : RootedPart(folder.data());
    const bool onDevice = path.starts_with(L'\\') && !path.starts_with(L"\\\\");
    HWND places = GetDlgItem(dialog, FILE_DIALOG_PLACES);
    SendMessageW(places, CB_RESETCONTENT, 0, 0);
    SendMessageW(places, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"\\"));
    for (std::size_t end = 1; onDevice && end < path.size(); ++end) {
        end = std::min(path.find(L'\\', end), path.size());
        std::vector<wchar_t> place(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(end));
        place.push_back(L'\0');
        SendMessageW(places, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(place.data()));
    }
    SendMessageW(places, CB_SETCURSEL, SendMessageW(places, CB_GETCOUNT, 0, 0) - 1, 0);
    EnableWayUp(dialog, onDevice && path.size() > 1);
    if (!onDevice) // the key that leads up does so from the root, too
        PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(FILE_DIALOG_PLACES, CBN_SELENDOK),
                     reinterpret_cast<LPARAM>(places));
}
