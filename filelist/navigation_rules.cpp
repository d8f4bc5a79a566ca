#include "filelist/navigation_rules.h"

#include "common/path.h"

bool NamesRoot(std::wstring_view path, std::wstring_view displayName) {
    return path.empty() || path == displayName || path == L"\\" || path == L"\\\\" || path == L"/";
}

std::wstring_view FolderAbove(std::wstring_view folder) {
    const std::wstring_view above = ParentOf(folder);
    return above == L"\\" ? std::wstring_view() : above;
}
