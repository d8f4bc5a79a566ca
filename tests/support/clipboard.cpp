#include "tests/support/clipboard.h"

#include <windows.h>

#include "tests/support/waiting.h"

std::wstring ClipboardText() {
    std::wstring text;
    WaitFor("for the clipboard", [] { return OpenClipboard(nullptr) != FALSE; });
    if (HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}
