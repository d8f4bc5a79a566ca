#include "launch/open_file_dialog.h"

#include "platform/handles.h"

bool ShowOpenFileDialog(OPENFILENAMEW& request) {
    using Dialog = BOOL(WINAPI*)(OPENFILENAMEW*);
    const LibraryHandle library(LoadLibraryW(L"getFiles.dll"));
    const FARPROC found = library ? ce::GetProcAddressW(library.Get(), L"hvGetSaveFileName") : nullptr;
    // By way of void*: the two types of function have nothing in common.
    const auto dialog = reinterpret_cast<Dialog>(reinterpret_cast<void*>(found));
    return (dialog ? dialog(&request) : ce::GetOpenFileNameW(&request)) != FALSE;
}
