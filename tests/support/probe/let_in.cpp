// Stands before the platform's calls in which messages of others arrive, and has one arrive there.

#include <atomic>
#include <cstddef>
#include <cstring>
#include <utility>

#include <windows.h>

#include <commdlg.h>
#include <shellapi.h>

#include "tests/support/probe/imports.h"
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
struct Entrance<number, Result(WINAPI*)(Arguments...)> {
    static inline Result(WINAPI* original)(Arguments...);
    static Result WINAPI Pass(Arguments... arguments) {
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

template <int number, class Function>
Patch PatchOf(const char* name) {
    using Place = Entrance<number, Function>;
    return {name, reinterpret_cast<void*>(Place::Pass), reinterpret_cast<void**>(&Place::original)};
}

void StandBeforeTheCalls() {
    const Patch patches[] = {
        PatchOf<0, decltype(&PeekMessageW)>("PeekMessageW"),
        PatchOf<1, decltype(&MessageBoxW)>("MessageBoxW"),
        PatchOf<2, decltype(&DialogBoxIndirectParamW)>("DialogBoxIndirectParamW"),
        PatchOf<3, decltype(&TrackPopupMenuEx)>("TrackPopupMenuEx"),
        PatchOf<4, decltype(&OpenClipboard)>("OpenClipboard"),
        PatchOf<5, decltype(&EmptyClipboard)>("EmptyClipboard"),
        PatchOf<6, decltype(&SHGetFileInfoW)>("SHGetFileInfoW"),
        PatchOf<7, decltype(&ShellExecuteExW)>("ShellExecuteExW"),
        PatchOf<8, decltype(&GetSaveFileNameW)>("GetSaveFileNameW"),
        {"free", reinterpret_cast<void*>(SpoilAndFree), reinterpret_cast<void**>(&originalFree)},
    };
    ReplaceImports(patches);
    HMODULE runtime = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(originalFree), &runtime);
    sizeOfBlock =
        reinterpret_cast<std::size_t (*)(void*)>(reinterpret_cast<void*>(GetProcAddress(runtime, "_msize")));
}

} // namespace

DWORD WINAPI LetIn(void* report) {
    static bool replaced;
    auto& asked = *static_cast<LetInReport*>(report);
    wanted.window = nullptr;
    if (!std::exchange(replaced, true))
        StandBeforeTheCalls();
    asked.places = placesPassed.exchange(0);
    std::memcpy(wanted.folder, asked.folder, sizeof(wanted.folder));
    wanted.place = asked.place;
    if (*asked.folder)
        wanted.window = asked.window;
    return 0;
}
