#include "platform/desktop/menu_bar_layout.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

namespace {

constexpr std::size_t HEADER_WORDS = 2;
constexpr std::size_t KEY_WORDS = 7;
constexpr WORD NO_POPUP = 0xFFFF;

/// Where a key's words stand; the others (image, a reserved one) mean nothing here.
enum KeyWord : std::size_t { COMMAND = 1, STATE = 2, STYLE = 3, TEXT = 4, POPUP = 6 };

/// The words of the RCDATA resource; empty when there is none.
std::vector<WORD> LoadWords(HINSTANCE instance, UINT id) {
    HRSRC resource = FindResourceW(instance, MAKEINTRESOURCEW(id), RT_RCDATA);
    HGLOBAL block = resource ? LoadResource(instance, resource) : nullptr;
    const void* data = block ? LockResource(block) : nullptr;
    const std::size_t count = data ? SizeofResource(instance, resource) / sizeof(WORD) : 0;
    std::vector<WORD> words(count);
    if (count != 0)
        std::memcpy(words.data(), data, count * sizeof(WORD));
    return words;
}

MenuBarKey ReadKey(std::span<const WORD> words, HMENU menu, HINSTANCE instance) {
    MenuBarKey key;
    key.command = words[COMMAND];
    key.state = static_cast<BYTE>(words[STATE]);
    key.opensPopup = (words[STYLE] & TBSTYLE_DROPDOWN) != 0;
    if (menu && words[POPUP] != NO_POPUP)
        key.popup = GetSubMenu(menu, words[POPUP]);
    LoadStringW(instance, words[TEXT], key.text.data(), static_cast<int>(key.text.size()));
    return key;
}

std::optional<MenuBarLayout> ReadResource(HINSTANCE instance, UINT id) {
    std::vector<WORD> words = LoadWords(instance, id);
    MenuBarLayout layout;
    if (words.size() < HEADER_WORDS)
        return std::nullopt;
    std::size_t count = words[1];
    if (count > layout.keys.size() || words.size() < HEADER_WORDS + count * KEY_WORDS)
        return std::nullopt;

    layout.menu.Reset(LoadMenuW(instance, MAKEINTRESOURCEW(words[0])));
    layout.keyCount = static_cast<int>(count);
    for (std::size_t i = 0; i < count; ++i)
        layout.keys[i] = ReadKey(std::span(words).subspan(HEADER_WORDS + i * KEY_WORDS, KEY_WORDS),
                                 layout.menu.Get(), instance);
    return layout;
}

/// A plain menu: its first two entries are the keys.
std::optional<MenuBarLayout> ReadMenu(HINSTANCE instance, UINT id) {
    MenuBarLayout layout;
    layout.menu.Reset(LoadMenuW(instance, MAKEINTRESOURCEW(id)));
    if (!layout.menu)
        return std::nullopt;
    layout.keyCount = std::min(GetMenuItemCount(layout.menu.Get()), static_cast<int>(layout.keys.size()));
    for (int i = 0; i < layout.keyCount; ++i) {
        MenuBarKey& key = layout.keys[i];
        MENUITEMINFOW item{};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_ID | MIIM_STATE | MIIM_SUBMENU | MIIM_STRING;
        item.dwTypeData = key.text.data();
        item.cch = static_cast<UINT>(key.text.size());
        GetMenuItemInfoW(layout.menu.Get(), static_cast<UINT>(i), TRUE, &item);
        key.command = item.wID;
        key.state = (item.fState & MFS_DISABLED) ? 0 : TBSTATE_ENABLED;
        key.popup = item.hSubMenu;
        key.opensPopup = item.hSubMenu != nullptr;
    }
    return layout;
}

} // namespace

std::optional<MenuBarLayout> ReadMenuBarLayout(const SHMENUBARINFO& info) {
    if (info.dwFlags & SHCMBF_EMPTYBAR)
        return MenuBarLayout{};
    if (info.dwFlags & SHCMBF_HMENU)
        return ReadMenu(info.hInstRes, info.nToolBarId);
    return ReadResource(info.hInstRes, info.nToolBarId);
}

MenuBarKey KeyForButton(HWND button) {
    MenuBarKey key;
    key.command = static_cast<UINT>(GetDlgCtrlID(button));
    key.state = TBSTATE_ENABLED;
    GetWindowTextW(button, key.text.data(), static_cast<int>(key.text.size()));
    static_cast<void>(std::remove(key.text.begin(), key.text.end(), L'&')); // the terminator moves along
    return key;
}
