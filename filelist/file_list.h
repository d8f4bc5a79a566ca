#pragma once
// The file list: the pane that shows one folder. One object; its work is spread over the files of this
// folder by what it does.

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "app/path.h"
#include "app/settings.h"
#include "filelist/file_item.h"
#include "filelist/history.h"
#include "filelist/icons.h"
#include "filelist/search_results.h"
#include "filelist/tap_and_hold.h"
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
    /// Shows one tree folder as the single, selected entry, so that the list's operations act on it.
    void ShowSingleEntry(std::wstring_view path);
    /// The record of an entry, or null for an index the list does not have.
    FileItem* ItemAt(int index) const;
    /// Turns commands that make no sense among search results into 0 while these are shown.
    int FilterSearchCommand(int command) const;
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
    void UpdateSortChecks();

    // --- navigation.cpp ---
    void GoBack();
    void GoForward();
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

    // --- user_path_menu.cpp ---

    /// Puts the remembered paths into "Go to".
    void BuildUserPathMenu();
    /// Takes them out again; to be called with the same paths.
    void ClearUserPathMenu();
    void GoToUserPath(int index);
    /// Builds the entries of the menus that come from folders and stored paths anew.
    void RebuildMenus();

    const Path& CurrentFolder() const { return currentFolder_; }
    /// Sets the path alone; the list shows it with the next listing.
    void SetCurrentFolder(const Path& folder) { currentFolder_ = folder; }
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
    SearchResults searchResults;
    TapAndHold tapAndHold;

  private:
    friend class ListSettingsStore; // reads and writes the fields that are stored

    // --- listing.cpp ---
    void ListFolder(const Path& path, int treeFlag);
    void ListSearchResults();
    int ItemCount() const;
    void BeginListing();
    void ClearList();
    void AddUpLevel();
    FileItem* AddEntry(const wchar_t* folder, const WIN32_FIND_DATAW& found);
    const wchar_t* KeepFolderText(std::wstring_view folder);
    void FillView(const FileItem* selected);
    void SelectEntry(int index);
    void EndListing(const Path& folder);

    // --- display.cpp ---
    wchar_t* TextOf(FileItem& item, int column) const;

    // --- presentation.cpp ---
    void InsertColumns();
    void ChooseStartFolder();
    void AttachGoToMenu();
    void DetachGoToMenu();

    HWND window_ = nullptr;
    MenuHandle menu_; // the context menus and "Go to"
    Path currentFolder_;
    Path previousFolder_;          // listed before; going up selects the child one came from
    FileItem* upLevel_ = nullptr;  // the ".." of the last folder listing, or null
    std::uint32_t totalBytes_ = 0; // of the files listed
    History history_;
    std::vector<std::unique_ptr<FileItem>> items_; // every record the view points to
    std::vector<OwnedText> folderTexts_;           // what the entries' folder fields point into
    IconSet largeIcons_;
    IconSet smallIcons_;
    IconSet* icons_ = &smallIcons_; // the set of the current style
};
