#pragma once
// What the program says to names that cannot be.

#include <string>

inline const std::wstring forbiddenNameText = L"A filename cannot contain these characters:\n\n\\/:,;*?<>|";
inline const std::wstring emptyNameText = L"Input file name.";
inline const std::wstring renameFailedText = L"Cannot rename file.";
