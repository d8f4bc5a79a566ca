#pragma once
// The file list: the pane that shows one folder. One object; its work is spread over the files of this
// folder by what it does.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "app/settings.h"
#include "common/path.h"
#include "filelist/clipboard.h"
#include "filelist/drag_drop.h"
#include "filelist/file_item.h"
#include "filelist/history.h"
#include "filelist/icons.h"
#include "filelist/label_edit.h"
#include "filelist/search_results.h"
#include "filelist/tap_and_hold.h"
#include "filelist/text_pool.h"
#include "foldertree/favorites_menu.h"
#include "launch/preferred_programs.h"
#include "platform/handles.h"

/// How the tree follows a navigation: it only selects the folder, or also reads its subfolders afresh.
constexpr int treeSelectOnly = 0;
constexpr int treeRescan = 1;

class FileList {
  public:
    // --- presentation.cpp: the view, its columns and styles ---

    /// Loads the list's settings and makes the view as a child of `parent`, unplaced and still empty.
    void CreateList(HWND parent);
    /// Saves the list's settings, frees everything and destroys the view.
    void DestroyList();
    /// Shows the style of a View Style command; any other number shows the stored style again.
    void ApplyViewStyle(int command);
    void CycleViewStyle();
    void InvertSelection();
    void SelectAll();
    void ReleaseSelection();
    /// Selected entries, the up-level entry not counted.
    int SelectedCount() const;
    /// Index of the first selected entry, or -1.
    int FirstSelected() const;
    /// Reads the columns' widths back into the options; only in a details style.
    void SaveColumnWidths();

    // --- listing.cpp: what the list shows ---

    /// Shows a folder, or the results of the last search for "File Search".
    void GoToFolder(std::wstring_view path, int treeFlag);
    /// Shows `path` after work that began while the list showed `began`. When another folder has been asked
    /// for meanwhile, the list stays there and is read anew.
    void ShowAfterWork(const Path& began, std::wstring_view path, int treeFlag);
    /// Shows one tree folder as the single, selected entry, so that the list's operations act on it.
    void ShowSingleEntry(std::wstring_view path);
    /// What an entry is, as a copy that outlives the listing; nothing for an index the list does not have.
    std::optional<SelectionEntry> EntryAt(int index) const;
    /// Turns commands that make no sense among search results into 0 while these are shown.
    int FilterSearchCommand(int command) const;
    /// Whether the folder shown holds, by their names, just what the list shows of it. True for what is no
    /// folder's content, as search results are.
    bool ShowsWhatIsThere() const;
    /// Sums the sizes of the folder's files anew and shows the total, leaving the entries alone.
    void RecountFolderBytes(std::wstring_view path);
    /// Shows the count of files, the bytes and, without an address bar, the folder's name.
    void UpdateStatusTexts();

    // --- display.cpp: texts and icons when they are drawn ---
    void OnGetDisplayInfo(NMLVDISPINFOW* info);

    // --- icons.cpp ---

    /// Makes both icon sets anew by the icon options and gives them to the view.
    void BuildIconSets();
    /// Fetches the file's icon from the shell again, for every entry that shares it.
    void RefreshIconFor(std::wstring_view path);

    // --- sorting.cpp ---
    void SortList();
    /// Carries out an Arrange Icons By command.
    void OnSortCommand(int command);
    void OnColumnClick(int column);

    // --- navigation.cpp ---
    void GoBack();
    void GoForward();
    /// Home goes back and End forward, in both panes. False for other keys.
    bool OnHistoryKey(WPARAM key);
    void UpOneLevel();
    void OpenEntry(int index);
    /// Goes where a typed or stored path leads: a folder is shown, a file opened, anything else reported.
    void GoToPath(std::wstring_view path);
    /// As GoToPath with the address bar's text.
    void GoToAddress();
    /// Goes to the entry picked in the address bar's list.
    void GoFromAddressBar();
    /// Shows the Favorites folder.
    void OrganizeFavorites();
    void UpdateNavigationState();

    // --- rename.cpp: names edited in place ---

    /// "Rename": edits the name of the first selected entry.
    void BeginRename();
    /// An editor opens over an entry's name.
    void OnBeginLabelEdit(int index);
    /// The editor closes. True when its row takes the new name; `text` is null when it was cancelled.
    bool EndRename(const wchar_t* text);
    /// Opens the editor over the name of an entry, if it is listed.
    void EditName(const Path& entry);
    /// Opens it again over the name that was refused, if its entry is still listed.
    void EditAgain();

    // --- new_folder.cpp ---

    /// Makes "New Folder", numbered when that is taken, and edits its name.
    void NewFolder();

    // --- shortcuts.cpp ---

    /// Makes a shortcut in `destination` to `folder`\`name`. One that cannot be made is not reported.
    void MakeShortcut(std::wstring_view destination, std::wstring_view folder, std::wstring_view name);
    /// Makes shortcuts to the selected entries beside them.
    void ShortcutsHere();

    // --- selection.cpp: the selection as the operations on files take it ---

    /// Index of the first selected entry behind `index`, or -1.
    int NextSelected(int index) const;
    /// The selected entries in list order; never the up-level entry.
    std::vector<SelectionEntry> CollectSelection() const;
    /// The paths of the selected entries in list order, the up-level entry's too.
    std::vector<Path> SelectedPaths() const;
    /// "Delete"
    void DeleteSelection();

    // --- clipboard.cpp: the program's own clipboard ---

    /// Both are false for a selection of nothing.
    bool CutSelection();
    bool CopySelection();
    /// Moves or copies what is on the clipboard into the current folder, and shows that anew.
    void Paste();
    /// The same into any folder, which is shown if `relist`.
    void PasteInto(const Path& folder, bool relist);
    /// Makes shortcuts to it in the current folder, and shows that anew.
    void PasteShortcut();
    /// Makes them in any folder.
    void PasteShortcutInto(const Path& destination);

    // --- copy_text.cpp: texts on the system's clipboard ---
    void CopyNameToClipboard();
    void CopyPathToClipboard();

    // --- send_to_folder.cpp: the selection goes to a folder that is asked for ---
    void CopyTo();
    void MoveTo();
    void ShortcutsTo();

    // --- user_path_menu.cpp ---

    /// Puts the remembered paths into "Go to".
    void BuildUserPathMenu();
    /// Takes them out again; to be called with the same paths.
    void ClearUserPathMenu();
    void GoToUserPath(int index);
    /// "User Path": has the user change the remembered paths.
    void ChangeUserPaths();
    /// Builds the entries of the menus that come from folders and stored paths anew.
    void RebuildMenus();

    // --- favorites.cpp ---

    /// Makes shortcuts to the selected entries, or to the folder shown, in the Favorites folder.
    void AddFavorite();
    /// Puts what is in the Favorites folder into "Favorites", in place of what was there.
    void BuildFavorites();
    void GoToFavorite(int index);

    const Path& CurrentFolder() const { return currentFolder_; }
    /// Sets the path alone; the list shows it with the next listing.
    void SetCurrentFolder(const Path& folder) { currentFolder_ = folder; }
    /// Tells one listing from the next: the entries are the same as long as it is.
    std::uint32_t ListingNumber() const { return listingNumber_; }
    HWND Window() const { return window_; }
    /// The "Go to" popup.
    HMENU GoToMenu() const;
    /// One of the context menus, by its POPUP_ number; null for a number without one.
    HMENU ContextPopupMenu(int number) const;
    bool UpLevelShown() const { return upLevel_ != nullptr; }
    const History& Visited() const { return history_; }

    ListOptions options;
    IconOptions iconOptions;
    std::uint32_t dateMode = 0;               // "TimeStump"
    std::uint32_t hideFolders = 0;            // "HideFolder"
    std::uint32_t noExtensionInShortcuts = 1; // "NoExtShortcut"
    PathText compressFolder{};
    std::vector<OwnedText> userPaths; // the remembered paths of the "Go to" menu
    PreferredPrograms preferredPrograms;
    FavoritesMenu favorites; // the built entries of "Favorites"
    SearchResults searchResults;
    FileClipboard clipboard;
    TapAndHold tapAndHold;
    DragDrop dragDrop;
    LabelEdit labelEdit;

  private:
    /// What the view's rows point to.
    struct Records {
        std::vector<std::unique_ptr<FileItem>> items;
        TextPool folders; // what the items' folder fields point into
    };

    // --- listing.cpp ---
    void ListFolder(const Path& path, int treeFlag);
    void ListSearchResults();
    int ItemCount() const;
    int IndexOf(const Path& path) const;
    FileItem* ItemAt(int index) const;
    FileItem* FindItem(const SelectionEntry& entry) const;
    Records BeginListing();
    Records TakeRecords();
    void ClearList();
    void AddUpLevel();
    FileItem* AddEntry(const wchar_t* folder, const WIN32_FIND_DATAW& found);
    void FillView(const FileItem* selected);
    void SelectEntry(int index);
    void EndListing(const Path& folder);

    // --- rename.cpp ---
    bool RenameEntry(const SelectionEntry& entry, std::wstring_view label);
    void TakeName(const SelectionEntry& entry, std::wstring_view name);
    void RefuseLabel(const SelectionEntry& entry, const wchar_t* message);

    // --- new_folder.cpp ---
    bool CreateNewFolder(Path& path);

    // --- selection.cpp ---
    void RemoveDone(std::span<const SelectionEntry> entries);

    // --- clipboard.cpp ---
    void FillClipboard(Transfer transfer);
    void EmptyClipboard();
    void MarkSelectionCut(bool cut);
    void FollowMovedResults(std::span<const SelectionEntry> entries, const Path& destination);

    // --- send_to_folder.cpp ---
    void TransferTo(Transfer transfer, const wchar_t* title);

    // --- display.cpp ---
    wchar_t* TextOf(int row, int column);
    wchar_t* MakeTypeText(int row);

    // --- presentation.cpp ---
    void InsertColumns();
    void ChooseStartFolder();
    void AttachGoToMenu();
    void BuildSendToEntries();
    void DetachGoToMenu();

    HWND window_ = nullptr;
    MenuHandle menu_; // the context menus and "Go to"
    Path currentFolder_;
    std::optional<SelectionEntry> edited_; // whose name is edited
    Path refused_;                         // the entry whose new name was refused and is asked for again
    Path previousFolder_;                  // listed before; going up selects the child one came from
    std::uint32_t listingNumber_ = 0;
    FileItem* upLevel_ = nullptr;  // the ".." of the last folder listing, or null
    std::uint32_t totalBytes_ = 0; // of the files listed
    History history_;
    Records records_;
    IconSet largeIcons_;
    IconSet smallIcons_;
    IconSet* icons_ = &smallIcons_; // the set of the current style
};
