#include "platform/desktop/scrolled_text.h"

#include <vector>

#include "platform/desktop/device_shell.h"
#include "platform/desktop/subclass.h"

namespace {

/// The lines of an edit field end in two characters.
std::vector<wchar_t> LinesOf(HWND control) {
    std::vector<wchar_t> text(GetWindowTextLengthW(control) + 1);
    GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    std::vector<wchar_t> lines;
    for (const wchar_t letter : text) {
        if (letter == L'\n' && (lines.empty() || lines.back() != L'\r'))
            lines.push_back(L'\r');
        lines.push_back(letter);
    }
    return lines;
}

LRESULT CALLBACK ScrolledTextProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN)) {
        SendMessageW(window, EM_LINESCROLL, 0, wParam == VK_UP ? -1 : 1);
        return 0;
    }
    LRESULT result = CallNextProc(ScrolledTextProc, window, message, wParam, lParam);
    if (message == WM_SETFOCUS)
        HideCaret(window);
    return message == WM_GETDLGCODE ? DLGC_WANTARROWS : result;
}

} // namespace

HWND ScrollText(HWND text, const RECT& place) {
    const HWND scrolled = CreateWindowExW(
        0, L"Edit", LinesOf(text).data(), WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY,
        place.left, place.top, place.right - place.left, place.bottom - place.top, GetParent(text), nullptr,
        ShellInstance(), nullptr);
    if (!scrolled)
        return nullptr;
    SendMessageW(scrolled, WM_SETFONT, SendMessageW(text, WM_GETFONT, 0, 0), FALSE);
    Subclass(scrolled, ScrolledTextProc);
    ShowWindow(text, SW_HIDE);
    SetFocus(scrolled);
    return scrolled;
}
