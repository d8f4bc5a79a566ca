#include <array>

#include "app/settings_keys.h"
#include "app/settings_store.h"
#include "common/registry.h"

namespace {

constexpr wchar_t bandsValue[] = L"CmdBands";
constexpr int recentLimit = 8;

/// "Recent1" to "Recent8".
struct RecentName {
    explicit RecentName(int number) { FormatText(text, L"Recent%d", number); }
    std::array<wchar_t, 16> text;
};

/// The text of an entry, cut to a path's length. False when the list has no such entry.
bool ReadEntry(HWND combo, int index, PathText& text) {
    const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length < 0)
        return false;
    const OwnedText entry(new wchar_t[static_cast<std::size_t>(length) + 1]);
    if (SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(entry.get())) <
        0)
        return false;
    CopyTextTo(text, entry.get());
    return true;
}

} // namespace

void LoadCommandBarState(CommandBands& bands) {
    if (const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, rebarKey))
        ReadBytes(key.Get(), bandsValue, std::as_writable_bytes(std::span(&bands, 1)));
    bands.toolBarShown = 0;
}

void SaveCommandBarState(const CommandBands& bands) {
    if (const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, rebarKey))
        WriteBytes(key.Get(), bandsValue, std::as_bytes(std::span(&bands, 1)));
}

void LoadRecent(HWND combo) {
    if (!combo)
        return;
    const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, recentKey);
    if (!key)
        return;
    for (int number = recentLimit; number >= 1; --number) {
        PathText text{};
        if (ReadText(key.Get(), RecentName(number).text.data(), text) && text[0] != L'\0')
            SendMessageW(combo, CB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(text.data()));
    }
}

void SaveRecent(HWND combo) {
    if (!combo)
        return;
    const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, recentKey);
    if (!key)
        return;
    // Values beyond the list's end are left alone: they come back below the new ones.
    PathText text{};
    for (int index = 0; index < recentLimit && ReadEntry(combo, index, text); ++index)
        WriteText(key.Get(), RecentName(index + 1).text.data(), text.data());
}
