#pragma once
// Calls of the phone's that are done otherwise here, because structures, numbers or handles differ or because
// the host would call back what only the emulated processor can run. Signatures are the phone's.

#include <windows.h>

#include <cstddef>

namespace replaced {

/// As the phone has it: times, sizes, an object's number, a name.
struct FindData {
    DWORD attributes;
    FILETIME created, accessed, written;
    DWORD sizeHigh, sizeLow;
    DWORD object;
    wchar_t name[MAX_PATH];
};
static_assert(sizeof(FindData) == 560);

HANDLE FindFirstFileW(const wchar_t* pattern, FindData* found);
BOOL FindNextFileW(HANDLE find, FindData* found);

// A handle that is closed twice, or is none, ends the program: what it closes the second time may be
// another's.
BOOL CloseHandle(HANDLE handle);
BOOL FindClose(HANDLE find);
LONG RegCloseKey(HKEY key);

HANDLE CreateThread(SECURITY_ATTRIBUTES* security, SIZE_T stack, LPTHREAD_START_ROUTINE start,
                    void* parameter, DWORD flags, DWORD* number);
INT_PTR DialogBoxIndirectParamW(HINSTANCE instance, const DLGTEMPLATE* dialog, HWND owner, DLGPROC procedure,
                                LPARAM parameter);
int EnumFontsW(HDC context, const wchar_t* name, FONTENUMPROCW report, LPARAM parameter);
LONG SetWindowLongW(HWND window, int index, LONG value);

HMODULE GetModuleHandleW(const wchar_t* name);
FARPROC GetProcAddressW(HMODULE library, const wchar_t* name);

// What the host answers in half a word, the phone's program takes for a whole one.
int GetAsyncKeyState(int key);
int GetKeyState(int key);
unsigned RegisterClassW(const WNDCLASSW* description);
unsigned towlower(unsigned character);

/// As memmove and memset.
void* MoveBlock(void* to, const void* from, std::size_t size);
void* FillBlock(void* to, int byte, std::size_t size);

/// The phone's numbers of colours carry a mark.
DWORD GetSysColor(int colour);
/// The phone has another number for a window that fills the screen.
BOOL ShowWindow(HWND window, int how);
/// The phone's handle of the process that asks is 66.
BOOL TerminateProcess(HANDLE process, UINT exitCode);

} // namespace replaced
