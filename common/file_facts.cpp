#include "common/file_facts.h"

#include "platform/ce_api.h"

bool Exists(const wchar_t* path) {
    return ce::GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
}

bool IsExistingFolder(const wchar_t* path) {
    const DWORD attributes = ce::GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

void CutToExisting(Path& folder) {
    while (!IsExistingFolder(folder.Text()) && folder.View().find(L'\\') != std::wstring_view::npos)
        folder.Truncate(ParentOf(folder.View()).size());
}
