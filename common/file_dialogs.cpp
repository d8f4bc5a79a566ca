#include "common/file_dialogs.h"

#include "platform/handles.h"

namespace {

using FileDialog = BOOL(WINAPI*)(OPENFILENAMEW*);

LibraryHandle LoadDialogLibrary() {
    return LibraryHandle(LoadLibraryW(L"getFiles.dll"));
}

/// The library's one dialog, for opening as for saving; null when there is none.
FileDialog DialogOf(const LibraryHandle& library) {
    const FARPROC found = library ? ce::GetProcAddressW(library.Get(), L"hvGetSaveFileName") : nullptr;
    // By way of void*: the two types of function have nothing in common.
    return reinterpret_cast<FileDialog>(reinterpret_cast<void*>(found));
}

} // namespace

bool ShowOpenFileDialog(OPENFILENAMEW& request) {
    const LibraryHandle library = LoadDialogLibrary();
    const FileDialog dialog = DialogOf(library);
    return (dialog ? dialog(&request) : ce::GetOpenFileNameW(&request)) != FALSE;
}

bool ShowSaveFileDialog(OPENFILENAMEW& request) {
    const LibraryHandle library = LoadDialogLibrary();
    const FileDialog dialog = DialogOf(library);
    if (!library)
        request.lpstrInitialDir = nullptr;
    return (dialog ? dialog(&request) : ce::GetSaveFileNameW(&request)) != FALSE;
}
