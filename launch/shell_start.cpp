#include "launch/shell_start.h"

#include "app/app_state.h"

std::optional<SelectionEntry> SelectedFile() {
    std::optional<SelectionEntry> entry = appState.fileList.EntryAt(appState.fileList.FirstSelected());
    if (entry && entry->kind != ItemKind::File)
        entry.reset();
    return entry;
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
