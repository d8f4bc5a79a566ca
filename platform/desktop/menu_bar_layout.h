#pragma once
// The keys of a menu bar as its resource describes them.

#include <array>
#include <optional>

#include "platform/ce_api.h"
#include "platform/handles.h"

struct MenuBarKey {
    UINT command = 0;
    BYTE state = 0;
    bool opensPopup = false;
    HMENU popup = nullptr;
    std::array<wchar_t, 64> text{};
};

struct MenuBarLayout {
    MenuHandle menu;
    int keyCount = 0;
    std::array<MenuBarKey, 2> keys{};
};

/// Reads the bar that `info` asks for: from the platform's own resource layout, from a plain menu
/// (SHCMBF_HMENU) or an empty one (SHCMBF_EMPTYBAR). Nothing when the resource is missing or malformed.
std::optional<MenuBarLayout> ReadMenuBarLayout(const SHMENUBARINFO& info);

/// A key that does what a dialog's button does.
MenuBarKey KeyForButton(HWND button);
