#include "tests/support/soft_keys.h"

#include <sstream>

#include <commctrl.h>

#include "platform/ce_types.h"
#include "tests/support/live_window.h"

HWND SoftKeyBarOf(HWND owner) {
    DWORD process = 0;
    GetWindowThreadProcessId(owner, &process);
    for (HWND window : TopWindowsOf(process))
        if (ClassOf(window) == L"menu_worker" && GetWindow(window, GW_OWNER) == owner)
            return window;
    return nullptr;
}

std::vector<std::wstring> SoftKeyTexts(HWND owner) {
    std::vector<std::wstring> texts;
    if (const HWND bar = SoftKeyBarOf(owner)) {
        std::wistringstream keys(TextOf(bar)); // the bar's own text names its keys, parted by tabs
        for (std::wstring key; std::getline(keys, key, L'\t');)
            texts.push_back(key);
    }
    return texts;
}

HMENU SoftKeyPopup(HWND owner, UINT command) {
    const HWND bar = SoftKeyBarOf(owner);
    return bar ? reinterpret_cast<HMENU>(Ask(bar, SHCMBM_GETSUBMENU, 0, static_cast<LPARAM>(command)))
               : nullptr;
}

bool SoftKeyIsEnabled(HWND owner, UINT command) {
    const HWND bar = SoftKeyBarOf(owner);
    return bar && Ask(bar, TB_ISBUTTONENABLED, command);
}
