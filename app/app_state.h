#pragma once
// The one global state of the program. It exists before the entry runs, with every default set.

#include <cstdint>
#include <optional>

#include "app/change_watcher.h"
#include "app/settings.h"
#include "filelist/file_list.h"
#include "fileops/archive_types.h"
#include "fileops/job_worker.h"
#include "foldertree/folder_tree.h"
#include "platform/ce_api.h"

/// The pane that the keyboard belongs to when the window has it.
enum class Pane { List, Tree };

struct AppState {
    HINSTANCE instance = nullptr;
    HWND mainWindow = nullptr;
    HWND listWindow = nullptr; // the file list's view, owner of dialogs
    HWND menuBar = nullptr;    // the soft keys
    HWND commandBar = nullptr;
    HWND addressCombo = nullptr; // the address bar, a combo box with an edit field
    HWND statusBar = nullptr;

    wchar_t* startPath = nullptr; // into the command line's text; null when it names no folder
    DWORD sipFlags = 0;

    Settings settings;
    CommandBands commandBands;

    FileList fileList;
    FolderTree folderTree;
    ChangeWatcher changeWatcher;
    JobWorker jobWorker;

    // Sticky keys, for phones without modifier keys
    bool ctrlLatched = false;
    bool shiftLatched = false;

    ArchiverAvailability archivers;        // found at the start
    std::optional<Path> lastExtractTarget; // the folder last chosen for extraction; none yet: the default one

    bool filesToPaste = false; // the list's clipboard holds entries, as UpdatePasteItems told last

    bool deviceChanged = false;
    bool dragging = false;
    bool labelEditing = false;
    bool menuOpen = false;
    bool marqueeStarted = false;
    bool selectionNoticePosted = false; // one notice is on its way for any number of changes
    Pane focusedPane = Pane::List;

    // Splitter drag: what the press found
    bool splitDragging = false;
    POINT splitPress{};
    std::int32_t splitPressWidth = 0;
    std::int32_t splitPressHeight = 0;

    FontHandle paneFont;
};

extern AppState appState;
