#include "filelist/listing_rules.h"

#include <algorithm>

#include "common/path.h"
#include "resources/resource.h"

bool IsListed(std::wstring_view name, DWORD attributes, const ListOptions& options) {
    const bool hidden = (attributes & FILE_ATTRIBUTE_HIDDEN) && options.hideHiddenFiles;
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return !hidden && !EqualNoCase(name, L"Recycled");
    const bool system = (attributes & FILE_ATTRIBUTE_SYSTEM) && options.hideSystemFiles;
    const bool inRom = (attributes & FILE_ATTRIBUTE_INROM) && options.hideRomFiles;
    return !hidden && !system && !inRom;
}

FileItem MakeFileItem(const wchar_t* folder, const WIN32_FIND_DATAW& found) {
    FileItem item;
    item.folder = folder;
    item.name = CopyText(found.cFileName);
    item.attributes = found.dwFileAttributes;
    item.iconIndex = iconWhenDrawn;
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
        item.kind = ItemKind::Folder;
        item.time = found.ftCreationTime;
    } else {
        item.kind = ItemKind::File;
        FileTimeToLocalFileTime(&found.ftLastWriteTime, &item.time);
        item.size = found.nFileSizeLow;
    }
    return item;
}

std::wstring_view NameToReselect(std::wstring_view path, std::wstring_view previous) {
    const std::size_t slash = previous.rfind(L'\\');
    if (slash == std::wstring_view::npos || path.substr(0, slash) != previous.substr(0, slash))
        return {};
    return previous.substr(slash + 1);
}

int StatusFileCount(int itemCount, bool upLevelShown, std::wstring_view folder) {
    return upLevelShown && !folder.empty() && folder != searchFolder ? itemCount - 1 : itemCount;
}

int FilterForSearchResults(int command) {
    constexpr int filtered[] = {IDM_TOOLBAR_PASTE_SHORTCUT, IDM_SENDTO_ZIP,        IDM_FILE_SHORTCUT,
                                IDM_FILE_NEW_FOLDER,        IDM_TOOLBAR_UP_FOLDER, IDM_TOOLBAR_PASTE};
    return std::find(std::begin(filtered), std::end(filtered), command) != std::end(filtered) ? 0 : command;
}
