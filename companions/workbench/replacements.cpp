#include "companions/workbench/replacements.h"

#include <cstring>
#include <cwchar>
#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "companions/workbench/calls.h"
#include "companions/workbench/ending.h"
#include "companions/workbench/leftovers.h"
#include "companions/workbench/processor.h"
#include "companions/workbench/thunks.h"
#include "platform/ce_api.h"

namespace {

/// The phone's libraries, which all are one here.
HMODULE PhoneLibrary() {
    return reinterpret_cast<HMODULE>(0xce000000);
}

void Convert(const WIN32_FIND_DATAW& host, replaced::FindData* found) {
    *found = {host.dwFileAttributes,
              host.ftCreationTime,
              host.ftLastAccessTime,
              host.ftLastWriteTime,
              host.nFileSizeHigh,
              host.nFileSizeLow,
              0,
              {}};
    std::memcpy(found->name, host.cFileName, sizeof(found->name));
}

struct Start {
    LPTHREAD_START_ROUTINE function;
    void* parameter;
};

DWORD WINAPI RunThread(void* start) {
    const std::unique_ptr<Start> own(static_cast<Start*>(start));
    const std::uint32_t parameter = reinterpret_cast<std::uint32_t>(own->parameter);
    const auto code =
        static_cast<DWORD>(CallGuest(reinterpret_cast<std::uint32_t>(own->function), &parameter, 1));
    GiveProcessorBack();
    return code;
}

/// Ends the program when what it has closed was no open handle.
void CheckClosed(bool closed) {
    if (!closed)
        EndAfterCheck("a handle is closed that is not open", RegistersOfCall());
}

FARPROC AsProcedure(std::uint32_t address) {
    return reinterpret_cast<FARPROC>(address);
}

/// The name in the host's plain letters, kept for the reports; null for a number.
const char* PlainName(const wchar_t* name) {
    if (IS_INTRESOURCE(name))
        return nullptr;
    static std::mutex oneAtATime;
    static std::set<std::string> kept;
    const std::lock_guard lock(oneAtATime);
    return kept.emplace(name, name + std::wcslen(name)).first->c_str();
}

} // namespace

namespace replaced {

HANDLE FindFirstFileW(const wchar_t* pattern, FindData* found) {
    WIN32_FIND_DATAW host{};
    const HANDLE find = ce::FindFirstFileW(pattern, &host);
    if (find != INVALID_HANDLE_VALUE)
        Convert(host, found);
    return find;
}

BOOL FindNextFileW(HANDLE find, FindData* found) {
    WIN32_FIND_DATAW host{};
    const BOOL more = ce::FindNextFileW(find, &host);
    if (more)
        Convert(host, found);
    return more;
}

BOOL CloseHandle(HANDLE handle) {
    CheckClosed(::CloseHandle(handle));
    return TRUE;
}

BOOL FindClose(HANDLE find) {
    CheckClosed(ce::FindClose(find));
    return TRUE;
}

LONG RegCloseKey(HKEY key) {
    CheckClosed(::RegCloseKey(key) == ERROR_SUCCESS);
    return ERROR_SUCCESS;
}

HANDLE CreateThread(SECURITY_ATTRIBUTES*, SIZE_T, LPTHREAD_START_ROUTINE function, void* parameter,
                    DWORD flags, DWORD* number) {
    auto start = std::make_unique<Start>(Start{function, parameter});
    const HANDLE thread =
        ::CreateThread(nullptr, 0, RunThread, start.get(), flags & CREATE_SUSPENDED, number);
    if (thread)
        static_cast<void>(start.release()); // the thread's now
    return thread;
}

INT_PTR DialogBoxIndirectParamW(HINSTANCE instance, const DLGTEMPLATE* dialog, HWND owner, DLGPROC procedure,
                                LPARAM parameter) {
    return ::DialogBoxIndirectParamW(instance, dialog, owner, CallableAs(procedure), parameter);
}

int EnumFontsW(HDC context, const wchar_t* name, FONTENUMPROCW report, LPARAM parameter) {
    return ce::EnumFontsW(context, name, CallableAs(report), parameter);
}

int GetAsyncKeyState(int key) {
    return ::GetAsyncKeyState(key);
}

int GetKeyState(int key) {
    return ::GetKeyState(key);
}

unsigned towlower(unsigned character) {
    return ::towlower(static_cast<wint_t>(character));
}

unsigned RegisterClassW(const WNDCLASSW* description) {
    WNDCLASSW host = *description;
    host.lpfnWndProc = CallableAs(host.lpfnWndProc);
    NoteGivenAway(host.hbrBackground);
    return ::RegisterClassW(&host);
}

LONG SetWindowLongW(HWND window, int index, LONG value) {
    const bool isProcedure = index == GWL_WNDPROC || index == DWL_DLGPROC;
    return ::SetWindowLongW(window, index,
                            isProcedure ? reinterpret_cast<LONG>(CallableAs(reinterpret_cast<WNDPROC>(value)))
                                        : value);
}

HMODULE GetModuleHandleW(const wchar_t* name) {
    return name && (std::wcscmp(name, L"coredll.dll") == 0 || std::wcscmp(name, L"aygshell.dll") == 0)
               ? PhoneLibrary()
               : ::GetModuleHandleW(name);
}

FARPROC GetProcAddressW(HMODULE library, const wchar_t* name) {
    const char* plain = PlainName(name);
    const HostFunction found =
        library == PhoneLibrary() ? FindCall(plain, static_cast<WORD>(reinterpret_cast<std::uintptr_t>(name)))
                                  : reinterpret_cast<HostFunction>(ce::GetProcAddressW(library, name));
    return found ? AsProcedure(TrapFor(found, plain ? plain : "by number")) : nullptr;
}

DWORD GetSysColor(int colour) {
    constexpr int mark = 0x40000000;
    return ::GetSysColor(colour & ~mark);
}

BOOL ShowWindow(HWND window, int how) {
    constexpr int fillTheScreen = 12;
    return ::ShowWindow(window, how == fillTheScreen ? SW_MAXIMIZE : how);
}

BOOL TerminateProcess(HANDLE process, UINT exitCode) {
    const auto self = reinterpret_cast<HANDLE>(66);
    if (process == self) {
        if (exitCode == 0)
            CheckNothingIsLeft();
        ExitProcess(exitCode);
    }
    return ::TerminateProcess(process, exitCode);
}

} // namespace replaced
