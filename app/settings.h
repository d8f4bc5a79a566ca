#pragma once
// The settings that live in the registry between runs. SettingsStore (settings_store.h) reads and writes
// them.

#include <array>
#include <cstdint>
#include <string_view>

#include "common/path.h"
#include "common/text.h"

struct Settings {
    /// Sets every default that needs no look at the shell's folders.
    Settings();
    // The leaves point into the record itself.
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    std::int32_t showStatusBar = 1;
    std::int32_t showFolderTree = 0;
    std::int32_t viewSide = 0; // 0: the tree above the list, anything else: left of it
    std::int32_t overlapped = 0;
    std::int32_t dragContextMenu = 0;
    std::int32_t fontChange = 0;
    std::int32_t dragDrop = 1;
    std::int32_t treeViewWidth = 0;  // pixels
    std::int32_t treeViewHeight = 0; // pixels
    std::int32_t fontSize = 12;      // points
    std::array<wchar_t, 128> fontName{};
    PathText sendToPath{};
    std::int32_t quoteFilePath = 1;
    PathText windowsPath{};
    PathText networkPath{};
    PathText favoritesPath{};
    PathText desktopPath{};
    PathText startMenuPath{};
    PathText myDocumentsPath{};

    // The names behind the last backslash of the three paths above, which mark special folders.
    const wchar_t* networkLeaf = L"";
    const wchar_t* myDocumentsLeaf = L"";
    const wchar_t* startMenuLeaf = L"";
};

/// The list's options as they are stored, whole, in "ListView": 22 words.
struct ListOptions {
    std::uint32_t sortKey = 0; // 0 name, 1 type, 2 size, 3 date
    std::uint32_t ascending = 1;
    std::uint32_t viewStyle = 0; // the list view's own style: 0 icon, 1 report, 2 small icon, 3 list
    std::uint32_t extendedStyle = 0;
    std::uint32_t hideHiddenFiles = 1;
    std::uint32_t hideSystemFiles = 0;
    std::uint32_t hideRomFiles = 0;
    std::array<std::uint32_t, 4> columnWidths{}; // name, size, type, modified; pixels
    std::uint32_t rememberLastFolder = 0;
    std::uint32_t noShortcutMention = 0;
    std::uint32_t noExtension = 1;
    std::uint32_t singleTapOpens = 1; // "Double Tap Activation" inverted
    std::uint32_t noColumnNames = 0;
    std::uint32_t showUpLevel = 1;
    std::uint32_t archiveType = 2; // 1 LHA, 2 ZIP
    std::uint32_t extractInPlace = 0;
    std::uint32_t automaticFolderCreation = 0;
    std::uint32_t alwaysOpenExtractFolder = 0;
    std::uint32_t openArchivesHere = 0;
};
static_assert(sizeof(ListOptions) == 88);

/// The icon options as they are stored in "FileImageList".
struct IconOptions {
    std::uint32_t genericIcons = 0;
    std::uint32_t ownRomIcons = 1;
    std::uint32_t ownArchiveIcons = 1;
    bool operator==(const IconOptions&) const = default;
};
static_assert(sizeof(IconOptions) == 12);

/// What the command bar shows, as stored in "CmdBands".
struct CommandBands {
    std::uint32_t toolBarShown = 0;
    std::uint32_t addressBarShown = 0;
};
static_assert(sizeof(CommandBands) == 8);
