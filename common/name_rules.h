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

/// The name, or the path, under which file systems keep `typed`: they take blanks and dots at its end off.
/// What consists of dots alone, as ".." does, names a place and stays.
std::wstring_view StoredName(std::wstring_view typed);
