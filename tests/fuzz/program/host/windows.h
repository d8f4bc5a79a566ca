#pragma once
// As much of the platform as the program's plain functions need, for building them on the host. Its
// characters have 16 bits here, too, so what counts bytes counts as on the phone. platform.cpp answers the
// calls.

#include <cstddef>
#include <cstdint>
#include <cwchar>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned;
using BOOL = int;
using LONG = std::int32_t;
using LSTATUS = LONG;
using LCID = DWORD;
using LCTYPE = DWORD;
using COLORREF = DWORD;
using REGSAM = DWORD;
using UINT_PTR = std::uintptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using HANDLE = void*;
using HGLOBAL = void*;
using HWND = struct Window*;
using HKEY = struct Key*;
using HMENU = struct Menu*;
using HFONT = struct Font*;
using HICON = struct Icon*;
using HIMAGELIST = struct ImageList*;
using HINSTANCE = struct Module*;
using HMODULE = HINSTANCE;
using HRSRC = struct Resource*;

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

struct SYSTEMTIME {
    WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};

struct POINT {
    LONG x, y;
};

struct RECT {
    LONG left, top, right, bottom;
};

struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

struct COPYDATASTRUCT {
    ULONG_PTR dwData;
    DWORD cbData;
    void* lpData;
};

struct NUMBERFMTW {
    UINT NumDigits, LeadingZero, Grouping;
    wchar_t* lpDecimalSep;
    wchar_t* lpThousandSep;
    UINT NegativeOrder;
};

struct MENUITEMINFOW {
    UINT cbSize, fMask, fType, fState, wID;
    HMENU hSubMenu;
    wchar_t* dwTypeData;
    UINT cch;
};

struct SECURITY_ATTRIBUTES;

constexpr BOOL FALSE = 0, TRUE = 1;
constexpr std::size_t MAX_PATH = 260;
constexpr UINT WM_USER = 0x400;
constexpr WPARAM VK_ESCAPE = 0x1B, VK_F1 = 0x70, VK_F2 = 0x71;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10, FILE_ATTRIBUTE_TEMPORARY = 0x100;
constexpr UINT CP_ACP = 0, CP_UTF8 = 65001;
constexpr DWORD MB_ERR_INVALID_CHARS = 8;
constexpr LCID LOCALE_USER_DEFAULT = 0x400;
constexpr LCTYPE LOCALE_SDECIMAL = 0xE, LOCALE_STHOUSAND = 0xF, LOCALE_SGROUPING = 0x10,
                 LOCALE_IDIGITS = 0x11, LOCALE_ILZERO = 0x12, LOCALE_INEGNUMBER = 0x1010,
                 LOCALE_RETURN_NUMBER = 0x20000000;
constexpr DWORD DATE_SHORTDATE = 1;
constexpr LSTATUS ERROR_SUCCESS = 0, ERROR_FILE_NOT_FOUND = 2, ERROR_MORE_DATA = 234;
constexpr DWORD REG_SZ = 1, REG_BINARY = 3, REG_DWORD = 4;
constexpr REGSAM KEY_READ = 0x20019, KEY_ALL_ACCESS = 0xF003F;
constexpr UINT MIIM_STATE = 1, MIIM_ID = 2, MIIM_SUBMENU = 4, MIIM_STRING = 0x40, MFS_DISABLED = 3;
constexpr BYTE TBSTATE_ENABLED = 4;
constexpr WORD TBSTYLE_DROPDOWN = 8;

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(-1);
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(0x80000001);
inline const wchar_t* const RT_RCDATA = reinterpret_cast<const wchar_t*>(10);

inline const wchar_t* MAKEINTRESOURCEW(UINT id) {
    return reinterpret_cast<const wchar_t*>(static_cast<std::uintptr_t>(static_cast<WORD>(id)));
}

// Texts
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int length, wchar_t* text,
                        int capacity);
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int length, char* bytes,
                        int capacity, const char* instead, BOOL* lost);
DWORD CharUpperBuffW(wchar_t* text, DWORD length);
char* _strupr(char* text);
char* _strlwr(char* text);

// Locale and time
int GetLocaleInfoW(LCID locale, LCTYPE kind, wchar_t* text, int capacity);
int GetNumberFormatW(LCID locale, DWORD flags, const wchar_t* number, const NUMBERFMTW* format, wchar_t* text,
                     int capacity);
int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, const wchar_t* format, wchar_t* text,
                   int capacity);
int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, const wchar_t* format, wchar_t* text,
                   int capacity);
void GetLocalTime(SYSTEMTIME* time);

// Registry
LSTATUS RegCreateKeyExW(HKEY root, const wchar_t* path, DWORD reserved, wchar_t* className, DWORD options,
                        REGSAM access, SECURITY_ATTRIBUTES* security, HKEY* key, DWORD* disposition);
LSTATUS RegOpenKeyExW(HKEY root, const wchar_t* path, DWORD options, REGSAM access, HKEY* key);
LSTATUS RegQueryValueExW(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size);
LSTATUS RegSetValueExW(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const BYTE* data,
                       DWORD size);
LSTATUS RegCloseKey(HKEY key);

// Resources and menus
HRSRC FindResourceW(HMODULE module, const wchar_t* name, const wchar_t* kind);
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
void* LockResource(HGLOBAL block);
DWORD SizeofResource(HMODULE module, HRSRC resource);
int LoadStringW(HINSTANCE instance, UINT id, wchar_t* text, int capacity);
HMENU LoadMenuW(HINSTANCE instance, const wchar_t* name);
HMENU GetSubMenu(HMENU menu, int place);
int GetMenuItemCount(HMENU menu);
BOOL GetMenuItemInfoW(HMENU menu, UINT place, BOOL byPlace, MENUITEMINFOW* info);
BOOL DestroyMenu(HMENU menu);

// Windows
int GetDlgCtrlID(HWND window);
int GetWindowTextW(HWND window, wchar_t* text, int capacity);
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// What the owners of handles close; never called.
BOOL CloseHandle(HANDLE handle);
BOOL FindCloseChangeNotification(HANDLE handle);
BOOL ImageList_Destroy(HIMAGELIST list);
BOOL DestroyIcon(HICON icon);
BOOL DeleteObject(HFONT font);
BOOL FreeLibrary(HMODULE library);
