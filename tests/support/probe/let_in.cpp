// Stands before the platform's calls in which messages of others arrive, and has one arrive there.

#include <atomic>
#include <cstddef>
#include <cstring>
#include <utility>

#include <windows.h>

#include <commdlg.h>
#include <shellapi.h>

#include "tests/support/probe/probe.h"

namespace {

constexpr ULONG_PTR openFolder = 563;

LetInReport wanted;
std::atomic<UINT> placesPassed;
bool busy; // with a hand-over of ours; the program's user-interface thread only

/// One place where messages are let in, if this is the thread that has the windows.
void PassPlace() {
    const HWND window = wanted.window;
    if (busy || !window || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId())
        return;
    if (placesPassed++ != wanted.place)
        return;
    busy = true;
    COPYDATASTRUCT data{openFolder, static_cast<DWORD>((wcslen(wanted.folder) + 1) * sizeof(wchar_t)),
                        wanted.folder};
    SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    busy = false;
}

/// In the place of one function of the platform.
template <int number, class Function>
struct Entrance;

template <int number, class Result, class... Arguments>
struct Entrance<number, Result(Arguments...)> {
    static inline Result (*original)(Arguments...);
    static Result Pass(Arguments... arguments) {
        PassPlace();
        const Result result = original(arguments...);
        PassPlace();
        return result;
    }
};

void (*originalFree)(void*);
std::size_t (*sizeOfBlock)(void*);

void SpoilAndFree(void* block) {
    if (block)
        std::memset(block, 0xDD, sizeOfBlock(block));
    originalFree(block);
}

struct Patch {
    const char* name;
    void* replacement;
    void** original;
};

template <int number, class Function>
Patch PatchOf(const char* name) {
    using Place = Entrance<number, Function>;
    return {name, reinterpret_cast<void*>(Place::Pass), reinterpret_cast<void**>(&Place::original)};
}

void Replace(std::byte* base, const IMAGE_IMPORT_DESCRIPTOR& library, IMAGE_THUNK_DATA& entry,
             const Patch& patch) {
    *patch.original = reinterpret_cast<void*>(entry.u1.Function);
    if (patch.replacement == reinterpret_cast<void*>(SpoilAndFree)) {
        const HMODULE runtime = GetModuleHandleA(reinterpret_cast<char*>(base + library.Name));
        sizeOfBlock = reinterpret_cast<std::size_t (*)(void*)>(
            reinterpret_cast<void*>(GetProcAddress(runtime, "_msize")));
    }
    DWORD protection = 0;
    VirtualProtect(&entry.u1.Function, sizeof(void*), PAGE_READWRITE, &protection);
    entry.u1.Function = reinterpret_cast<ULONG_PTR>(patch.replacement);
    VirtualProtect(&entry.u1.Function, sizeof(void*), protection, &protection);
}

void ReplaceImportsOf(std::byte* base, const IMAGE_IMPORT_DESCRIPTOR& library) {
    static const Patch patches[] = {
        PatchOf<0, decltype(PeekMessageW)>("PeekMessageW"),
        PatchOf<1, decltype(MessageBoxW)>("MessageBoxW"),
        PatchOf<2, decltype(DialogBoxIndirectParamW)>("DialogBoxIndirectParamW"),
        PatchOf<3, decltype(TrackPopupMenuEx)>("TrackPopupMenuEx"),
        PatchOf<4, decltype(OpenClipboard)>("OpenClipboard"),
        PatchOf<5, decltype(EmptyClipboard)>("EmptyClipboard"),
        PatchOf<6, decltype(SHGetFileInfoW)>("SHGetFileInfoW"),
        PatchOf<7, decltype(ShellExecuteExW)>("ShellExecuteExW"),
        PatchOf<8, decltype(GetSaveFileNameW)>("GetSaveFileNameW"),
        {"free", reinterpret_cast<void*>(SpoilAndFree), reinterpret_cast<void**>(&originalFree)},
    };
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library.OriginalFirstThunk);
    auto* entry = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library.FirstThunk);
    for (; name->u1.AddressOfData; ++name, ++entry) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
            continue;
        const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
        for (const Patch& patch : patches)
            if (std::strcmp(import->Name, patch.name) == 0)
                Replace(base, library, *entry, patch);
    }
}

/// Puts the replacements into the program's own tables of what it takes from libraries.
void ReplaceImports() {
    auto* const base = reinterpret_cast<std::byte*>(GetModuleHandleW(nullptr));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
    for (; library->Name; ++library)
        ReplaceImportsOf(base, *library);
}

} // namespace

DWORD WINAPI LetIn(void* report) {
    static bool replaced;
    auto& asked = *static_cast<LetInReport*>(report);
    wanted.window = nullptr;
    if (!std::exchange(replaced, true))
        ReplaceImports();
    asked.places = placesPassed.exchange(0);
    std::memcpy(wanted.folder, asked.folder, sizeof(wanted.folder));
    wanted.place = asked.place;
    if (*asked.folder)
        wanted.window = asked.window;
    return 0;
}
