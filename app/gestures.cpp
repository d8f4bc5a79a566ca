#include "app/gestures.h"

#include "app/app_state.h"

namespace {

/// Closes the menu that a pane or the main window has open.
void CloseMenu() {
    for (HWND owner : {appState.mainWindow, appState.fileList.Window()})
        SendMessageW(owner, WM_CANCELMODE, 0, 0);
}

} // namespace

bool IsGestureRunning() {
    return appState.labelEditing || appState.dragging || appState.menuOpen ||
           appState.fileList.tapAndHold.IsPressed() || appState.folderTree.IsPressed();
}

void EndGesture() {
    appState.fileList.labelEdit.Cancel();
    appState.folderTree.CancelEdit();
    appState.fileList.dragDrop.Cancel();
    appState.fileList.tapAndHold.Abandon(appState.fileList.Window());
    appState.folderTree.AbandonPress();
    if (appState.menuOpen)
        CloseMenu();
}
