#pragma once
// Where and how the program stores its settings.

#include <cstdint>
#include <string>
#include <vector>

inline const std::wstring productKey = L"HKCU\\Software\\Helvane\\Tarvik File Manager+";
inline const std::wstring settingsKey = productKey + L"\\Settings";
inline const std::wstring rebarKey = settingsKey + L"\\Rebar";
inline const std::wstring recentKey = settingsKey + L"\\Recent";

/// The words of "ListView", by their place.
enum class ListOption {
    SortKey,
    Ascending,
    ViewStyle,
    ExtendedStyle,
    HideHiddenFiles,
    HideSystemFiles,
    HideRomFiles,
    NameWidth,
    SizeWidth,
    TypeWidth,
    ModifiedWidth,
    RememberLastFolder,
    NoShortcutMention,
    NoExtension,
    SingleTapOpens,
    NoColumnNames,
    ShowUpLevel,
    ArchiveType,
    ExtractInPlace,
    AutomaticFolderCreation,
    AlwaysOpenExtractFolder,
    OpenArchivesHere,
};

/// The words that a program without stored settings writes on this screen.
std::vector<std::uint32_t> DefaultListOptions();
