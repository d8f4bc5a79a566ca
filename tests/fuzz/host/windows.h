#pragma once
// As much of the platform as the archiver's readers need, for building them on the host.

#include <cstddef>
#include <cstdint>
#include <cwchar>

using DWORD = std::uint32_t;
using UINT = unsigned;
using BOOL = int;
using HANDLE = void*;

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

constexpr BOOL FALSE = 0;
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x1, FILE_ATTRIBUTE_DIRECTORY = 0x10, FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD ERROR_READ_FAULT = 30, ERROR_SEEK = 25, ERROR_DISK_FULL = 112, ERROR_HANDLE_DISK_FULL = 39;
constexpr UINT CP_UTF8 = 65001;
constexpr DWORD MB_ERR_INVALID_CHARS = 8, WC_ERR_INVALID_CHARS = 0x80, WC_NO_BEST_FIT_CHARS = 0x400;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000, FORMAT_MESSAGE_IGNORE_INSERTS = 0x200,
                FORMAT_MESSAGE_MAX_WIDTH_MASK = 0xFF;

DWORD GetLastError();
DWORD FormatMessageW(DWORD flags, const void* source, DWORD message, DWORD language, wchar_t* buffer,
                     DWORD size, void* arguments);
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int length, wchar_t* text,
                        int capacity);
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int length, char* bytes,
                        int capacity, const char* instead, BOOL* lost);
BOOL DeleteFileW(const wchar_t* path);
BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes);
