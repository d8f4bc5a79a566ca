#pragma once
// What a person may name a file or folder, and what is said when it cannot be.

#include <string_view>

constexpr wchar_t forbiddenCharacters[] = L"\\/:,;*?<>|";

constexpr wchar_t forbiddenNameMessage[] = L"A filename cannot contain these characters:\n\n\\/:,;*?<>|";
constexpr wchar_t emptyNameMessage[] = L"Input file name.";
constexpr wchar_t renameFailedMessage[] = L"Cannot rename file.";

/// True when `name` holds a character no name may have. Comma and semicolon count, though file systems would
/// take them.
bool HasForbiddenCharacter(std::wstring_view name);
