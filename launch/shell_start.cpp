#include "launch/shell_start.h"

#include "app/app_state.h"

const FileItem* SelectedFile() {
    const FileItem* item = appState.fileList.ItemAt(appState.fileList.FirstSelected());
    return item && item->kind == ItemKind::File ? item : nullptr;
}

void StartThroughShell(const ShellStart& start) {
    SHELLEXECUTEINFOW request{};
    request.cbSize = sizeof(request);
    request.hwnd = start.owner ? start.owner : appState.mainWindow;
    request.lpVerb = L"open";
    request.lpFile = start.file;
    request.lpParameters = start.parameters;
    request.lpDirectory = start.directory;
    request.nShow = SW_SHOW;
    request.hInstApp = appState.instance;
    ce::ShellExecuteEx(&request);
}
