#include "tests/support/file_places.h"

#include <windows.h>

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\'));
}

std::wstring BesideTests(const std::wstring& name) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return FolderOf(path) + L"\\" + name;
}
