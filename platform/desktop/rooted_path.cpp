#include "platform/desktop/rooted_path.h"

std::wstring_view RootedPart(std::wstring_view path) {
    if (path.size() < 3 || path[1] != L':' || path[2] != L'\\')
        return path;
    const std::vector<wchar_t> root = FullPath(L"\\");
    return !root.empty() && SameText(path.substr(0, 1), {root.data(), 1}) ? path.substr(2) : path;
}

std::vector<wchar_t> FullPath(const wchar_t* path) {
    const DWORD size = GetFullPathNameW(path, 0, nullptr, nullptr);
    std::vector<wchar_t> full(size);
    if (size == 0 || GetFullPathNameW(path, size, full.data(), nullptr) >= size)
        return {};
    return full;
}

std::wstring_view FolderPart(std::wstring_view path) {
    const std::size_t slash = path.rfind(L'\\');
    return slash == std::wstring_view::npos ? std::wstring_view() : path.substr(0, slash);
}

std::wstring_view NamePart(std::wstring_view path) {
    const std::size_t slash = path.rfind(L'\\');
    return slash == std::wstring_view::npos ? path : path.substr(slash + 1);
}

bool SameText(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}
