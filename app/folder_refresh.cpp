#include "app/folder_refresh.h"

#include "app/address_bar.h"
#include "app/app_state.h"
#include "app/gestures.h"
#include "common/file_facts.h"

namespace {

constexpr UINT refreshDelay = 2000; // milliseconds

void StartDelay() {
    KillTimer(appState.mainWindow, refreshTimer);
    SetTimer(appState.mainWindow, refreshTimer, refreshDelay, nullptr);
}

} // namespace

void ScheduleRefresh(RefreshCause cause) {
    if (cause == RefreshCause::DeviceChange)
        appState.deviceChanged = true;
    StartDelay();
}

void OnFolderChanged() {
    MSG message{};
    while (PeekMessageW(&message, appState.mainWindow, UM_FOLDERCHANGED, UM_FOLDERCHANGED, PM_REMOVE)) {
    }
    ScheduleRefresh(RefreshCause::FolderChange);
}

void OnLookAgain() {
    if (appState.changeWatcher.TakeUnread() && !appState.fileList.ShowsWhatIsThere())
        ScheduleRefresh(RefreshCause::FolderChange);
}

void RefreshAfterChange() {
    // Nor is an address half typed overwritten.
    if (IsGestureRunning() || IsAddressBeingTyped())
        return StartDelay();
    KillTimer(appState.mainWindow, refreshTimer);
    appState.folderTree.RefreshRoot();
    Path target = appState.fileList.CurrentFolder();
    const bool exists = IsExistingFolder(target.Text());
    if (appState.deviceChanged && exists) {
        // A card came or went elsewhere: the list may stay as it is.
        if (!target.IsEmpty() && target.View() != appState.settings.networkLeaf) {
            appState.deviceChanged = false;
            return;
        }
        target.Clear();
    } else if (!exists) {
        CutToExisting(target);
    }
    appState.fileList.GoToFolder(target.View(), treeRescan);
    appState.deviceChanged = false;
}
