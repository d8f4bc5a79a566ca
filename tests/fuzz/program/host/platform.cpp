// The platform's calls, answered with what a fuzzer chose, within what the platform promises of each.

#include <algorithm>
#include <cctype>

#include "platform/ce_api.h"
#include "tests/fuzz/program/host/answers.h"

Answers answers;

namespace {

/// Copies the text and its end, as calls do that count the end and say 0 for what does not fit.
int GiveText(wchar_t* text, int capacity) {
    const int needed = static_cast<int>(answers.text.size()) + 1;
    if (capacity == 0)
        return needed;
    if (needed > capacity)
        return 0;
    std::copy_n(answers.text.c_str(), needed, text);
    return needed;
}

} // namespace

DWORD CharUpperBuffW(wchar_t* text, DWORD length) {
    std::transform(text, text + length, text, [](wchar_t character) {
        return character < 0x80 ? static_cast<wchar_t>(std::toupper(character)) : character;
    });
    return length;
}

char* _strupr(char* text) {
    for (char* at = text; *at != '\0'; ++at)
        *at = static_cast<char>(std::toupper(static_cast<unsigned char>(*at)));
    return text;
}

char* _strlwr(char* text) {
    for (char* at = text; *at != '\0'; ++at)
        *at = static_cast<char>(std::tolower(static_cast<unsigned char>(*at)));
    return text;
}

int GetLocaleInfoW(LCID, LCTYPE kind, wchar_t* text, int capacity) {
    if ((kind & LOCALE_RETURN_NUMBER) == 0)
        return GiveText(text, capacity);
    const DWORD number = answers.text.empty() ? 0 : answers.text[0];
    __builtin_memcpy(text, &number, sizeof(number));
    return sizeof(number) / sizeof(wchar_t);
}

int GetNumberFormatW(LCID, DWORD, const wchar_t*, const NUMBERFMTW*, wchar_t* text, int capacity) {
    return GiveText(text, capacity);
}

int GetDateFormatW(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t* text, int capacity) {
    return GiveText(text, capacity);
}

int GetTimeFormatW(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t* text, int capacity) {
    return GiveText(text, capacity);
}

void GetLocalTime(SYSTEMTIME* time) {
    *time = {2026, 11, 0, 22, 12, 0, 0, 0};
}

LSTATUS RegCreateKeyExW(HKEY root, const wchar_t*, DWORD, wchar_t*, DWORD, REGSAM, SECURITY_ATTRIBUTES*,
                        HKEY* key, DWORD*) {
    if (answers.registryFails)
        return ERROR_FILE_NOT_FOUND;
    *key = root;
    return ERROR_SUCCESS;
}

LSTATUS RegOpenKeyExW(HKEY root, const wchar_t* path, DWORD, REGSAM access, HKEY* key) {
    return RegCreateKeyExW(root, path, 0, nullptr, 0, access, nullptr, key, nullptr);
}

LSTATUS RegQueryValueExW(HKEY, const wchar_t*, DWORD*, DWORD* type, BYTE* data, DWORD* size) {
    if (answers.registryFails)
        return ERROR_FILE_NOT_FOUND;
    if (type)
        *type = REG_BINARY;
    const auto needed = static_cast<DWORD>(answers.registryValue.size());
    const bool fits = needed <= *size;
    *size = needed;
    if (!fits)
        return ERROR_MORE_DATA;
    std::copy(answers.registryValue.begin(), answers.registryValue.end(), data);
    return ERROR_SUCCESS;
}

LSTATUS RegSetValueExW(HKEY, const wchar_t*, DWORD, DWORD, const BYTE*, DWORD) {
    return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY) {
    return ERROR_SUCCESS;
}

HRSRC FindResourceW(HMODULE, const wchar_t*, const wchar_t*) {
    return answers.resource.empty() ? nullptr : reinterpret_cast<HRSRC>(&answers);
}

HGLOBAL LoadResource(HMODULE, HRSRC resource) {
    return resource;
}

void* LockResource(HGLOBAL) {
    return answers.resource.data();
}

DWORD SizeofResource(HMODULE, HRSRC) {
    return static_cast<DWORD>(answers.resource.size());
}

/// Unlike the others it cuts what does not fit, and does not count the end.
int LoadStringW(HINSTANCE, UINT, wchar_t* text, int capacity) {
    const int length = std::min(static_cast<int>(answers.text.size()), capacity - 1);
    *std::copy_n(answers.text.begin(), length, text) = L'\0';
    return length;
}

int GetWindowTextW(HWND, wchar_t* text, int capacity) {
    return LoadStringW(nullptr, 0, text, capacity);
}

int GetDlgCtrlID(HWND) {
    return 1;
}

HMENU LoadMenuW(HINSTANCE, const wchar_t*) {
    return reinterpret_cast<HMENU>(&answers);
}

HMENU GetSubMenu(HMENU menu, int place) {
    return place < 2 ? menu : nullptr;
}

int GetMenuItemCount(HMENU) {
    return static_cast<int>(answers.resource.size()) - 1;
}

BOOL GetMenuItemInfoW(HMENU, UINT, BOOL, MENUITEMINFOW* info) {
    info->wID = 1;
    LoadStringW(nullptr, 0, info->dwTypeData, static_cast<int>(info->cch));
    return TRUE;
}

BOOL DestroyMenu(HMENU) {
    return TRUE;
}
