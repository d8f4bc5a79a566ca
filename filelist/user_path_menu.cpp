#include "filelist/user_path_menu.h"

#include <algorithm>

#include "common/menu_text.h"
#include "common/path.h"
#include "filelist/file_list.h"
#include "foldertree/user_paths_dialog.h"
#include "resources/resource.h"

namespace {

// Where the separator in front of "User Path" is once the paths are out.
constexpr UINT separatorPosition = 6;

std::span<const OwnedText> ShownPaths(std::span<const OwnedText> paths) {
    return paths.first(std::min<std::size_t>(paths.size(), BUILT_ENTRY_LIMIT));
}

} // namespace

std::wstring_view UserPathMenuText(std::wstring_view path) {
    return LeafOf(path);
}

void InsertUserPaths(HMENU goToMenu, std::span<const OwnedText> paths) {
    UINT_PTR command = IDM_USERPATH_FIRST;
    for (const OwnedText& path : ShownPaths(paths)) {
        const OwnedText text = MenuTextOf(UserPathMenuText(path.get()));
        InsertMenuW(goToMenu, IDM_GOTO_USER_PATH, MF_BYCOMMAND | MF_STRING, command++, text.get());
    }
    if (!paths.empty())
        InsertMenuW(goToMenu, IDM_GOTO_USER_PATH, MF_BYCOMMAND | MF_SEPARATOR, 0, nullptr);
}

void RemoveUserPaths(HMENU goToMenu, std::span<const OwnedText> paths) {
    UINT command = IDM_USERPATH_FIRST;
    for (std::size_t path = 0; path < ShownPaths(paths).size(); ++path)
        DeleteMenu(goToMenu, command++, MF_BYCOMMAND);
    if (!paths.empty())
        DeleteMenu(goToMenu, separatorPosition, MF_BYPOSITION);
}

void FileList::BuildUserPathMenu() {
    InsertUserPaths(GoToMenu(), userPaths);
}

void FileList::ClearUserPathMenu() {
    RemoveUserPaths(GoToMenu(), userPaths);
}

void FileList::RebuildMenus() {
    ClearUserPathMenu();
    BuildUserPathMenu();
    BuildSendToEntries();
    BuildFavorites();
}

void FileList::ChangeUserPaths() {
    ClearUserPathMenu();
    editUserPaths(userPaths);
    BuildUserPathMenu();
}

void FileList::GoToUserPath(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= userPaths.size())
        return;
    const OwnedText path = CopyText(userPaths[static_cast<std::size_t>(index)].get()); // as a favourite's
    GoToPath(path.get());
}
