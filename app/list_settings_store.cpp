#include <array>

#include "app/settings_keys.h"
#include "app/settings_store.h"
#include "common/outside_path.h"
#include "common/registry.h"

namespace {

constexpr wchar_t optionsValue[] = L"ListView";
constexpr wchar_t iconsValue[] = L"FileImageList";
constexpr wchar_t pathCountValue[] = L"OpenPthInfoCount";
constexpr wchar_t lastFolderValue[] = L"LastFolder";
constexpr wchar_t compressFolderValue[] = L"CompressFolder";
constexpr wchar_t dateModeValue[] = L"TimeStump";
constexpr wchar_t hideFoldersValue[] = L"HideFolder";
constexpr wchar_t noExtensionValue[] = L"NoExtShortcut";

void SetScreenDefaults(FileList& list) {
    list.options.columnWidths.fill(static_cast<std::uint32_t>(GetSystemMetrics(SM_CXSCREEN) / 2));
    CopyTextTo(list.compressFolder, L"\\Temp");
}

/// Another size is another version's record: none of it is taken.
void ReadOptions(HKEY key, ListOptions& options) {
    ListOptions stored;
    if (ReadBytes(key, optionsValue, std::as_writable_bytes(std::span(&stored, 1))) == sizeof(stored))
        options = stored;
}

void ReadLastFolder(HKEY key, FileList& list) {
    PathText text{};
    Path folder;
    if (!ReadText(key, lastFolderValue, text) || !folder.Assign(text.data()))
        return;
    if (folder.IsSearchFolder() || TakeOutsidePath(text.data(), folder))
        list.SetCurrentFolder(folder);
}

void WriteUserPaths(HKEY key, std::span<const OwnedText> paths) {
    WriteNumberBytes(key, pathCountValue, static_cast<std::uint32_t>(paths.size()));
    for (std::size_t index = 0; index < paths.size(); ++index) {
        std::array<wchar_t, 32> name;
        FormatText(name, L"OpenPthInfo%d", static_cast<int>(index));
        WriteText(key, name.data(), paths[index].get());
    }
}

} // namespace

// The user's paths are written but, on purpose, not taken back: every run starts without any.
void LoadListSettings(FileList& list) {
    SetScreenDefaults(list);
    const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, settingsKey);
    if (!key)
        return;
    ReadOptions(key.Get(), list.options);
    ReadBytes(key.Get(), iconsValue, std::as_writable_bytes(std::span(&list.iconOptions, 1)));
    ReadLastFolder(key.Get(), list);
    ReadText(key.Get(), compressFolderValue, list.compressFolder);
    ReadNumber(key.Get(), dateModeValue, list.dateMode);
    ReadNumber(key.Get(), hideFoldersValue, list.hideFolders);
    ReadNumber(key.Get(), noExtensionValue, list.noExtensionInShortcuts);
}

void SaveListSettings(FileList& list) {
    list.SaveColumnWidths();
    const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, settingsKey);
    if (!key)
        return;
    WriteBytes(key.Get(), optionsValue, std::as_bytes(std::span(&list.options, 1)));
    WriteBytes(key.Get(), iconsValue, std::as_bytes(std::span(&list.iconOptions, 1)));
    WriteUserPaths(key.Get(), list.userPaths);
    WriteText(key.Get(), lastFolderValue, list.CurrentFolder().Text());
    WriteText(key.Get(), compressFolderValue, list.compressFolder.data());
    WriteNumberBytes(key.Get(), dateModeValue, list.dateMode);
    WriteNumberBytes(key.Get(), hideFoldersValue, list.hideFolders);
    WriteNumberBytes(key.Get(), noExtensionValue, list.noExtensionInShortcuts);
}
