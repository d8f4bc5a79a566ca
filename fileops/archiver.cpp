#include "fileops/archiver.h"

#include <cstdint>
#include <vector>

#include "app/app_state.h"
#include "common/wait_cursor.h"
#include "platform/handles.h"

namespace {

constexpr wchar_t libraryName[] = L"UNZip.dll";

/// What the library is told of its output buffer. It is a number of bytes, but a library that takes it for
/// characters must do no harm: there is room for as many, and for a zero behind them.
constexpr DWORD outputSize = 2048;

using Archiver = std::int32_t(WINAPI*)(HWND owner, const wchar_t* command, wchar_t* output, DWORD size);

/// Null when the library has no such entry point.
Archiver EntryPoint(HMODULE library, ArchiveType type) {
    const FARPROC found = ce::GetProcAddressW(library, type == ArchiveType::Lha ? L"Unlha" : L"UnZip");
    // By way of void*: the two types of function have nothing in common.
    return reinterpret_cast<Archiver>(reinterpret_cast<void*>(found));
}

void Report(const wchar_t* text) {
    MessageBoxW(appState.mainWindow, text, L"", MB_ICONHAND);
}

/// A library without the entry point has nothing to do, which is no failure.
bool Call(HMODULE library, ArchiveType type, const wchar_t* command, wchar_t* output) {
    const Archiver archiver = EntryPoint(library, type);
    if (!archiver)
        return true;
    const WaitCursor wait;
    appState.changeWatcher.PauseWatcher();
    const bool succeeded = archiver(nullptr, command, output, outputSize) == 0;
    appState.changeWatcher.ResumeWatcher();
    return succeeded;
}

} // namespace

ArchiverAvailability FindArchivers() {
    const bool found = static_cast<bool>(LibraryHandle(LoadLibraryW(libraryName)));
    return {found, found}; // one library for both
}

ArchiverRun RunArchiver(ArchiveType type, const wchar_t* command) {
    LibraryHandle library(LoadLibraryW(libraryName));
    if (!library) {
        Report(type == ArchiveType::Lha ? L"UNLHA.DLL is not found." : L"UNZip.dll is not found.");
        return {};
    }
    std::vector<wchar_t> output(outputSize + 1);
    const bool succeeded = Call(library.Get(), type, command, output.data());
    library.Reset();
    output.back() = L'\0';
    if (!succeeded)
        Report(output.data());
    return {true, succeeded};
}
