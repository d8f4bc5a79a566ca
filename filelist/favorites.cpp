// Favorites: shortcuts in a folder of their own, and a menu of them.

#include "app/app_state.h"
#include "app/menu_state.h"
#include "filelist/file_list.h"
#include "resources/resource.h"

namespace {

constexpr int favoritesPosition = 0; // in "Go to"

void CopySelectionOf(int) {
    appState.fileList.CopySelection();
}

} // namespace

void FileList::AddFavorite() {
    Path favoritesFolder;
    if (!favoritesFolder.Assign(appState.settings.favoritesPath.data()))
        return;
    // Nothing is left on the clipboard when neither pane has anything to copy.
    CopySelection();
    if (clipboard.IsEmpty())
        appState.folderTree.OperateOnFolder(CopySelectionOf, IDM_FAVORITES_ADD);
    PasteShortcutInto(favoritesFolder);
    ReleaseSelection();
    BuildFavorites();
    UpdateMenuState();
}

void FileList::BuildFavorites() {
    HMENU menu = GetSubMenu(GoToMenu(), favoritesPosition);
    favorites.clearFavoritesMenu(menu);
    Path folder;
    if (folder.Assign(appState.settings.favoritesPath.data()))
        favorites.buildFavoritesMenu(menu, folder);
}

void FileList::GoToFavorite(int index) {
    if (const wchar_t* file = favorites.FileOf(index)) {
        // Opening it may have the menus, and with them this text, built anew.
        const OwnedText path = CopyText(file);
        GoToPath(path.get());
    }
}
