#pragma once
// What an edited label means for the entry it belongs to.

#include <string_view>

#include "common/path.h"
#include "filelist/file_item.h"

enum class LabelVerdict {
    Keep,      // nothing happens, nothing is said
    Forbidden, // holds a character that no name may have
    Empty,
    Rename,
};

/// `label` is null when the edit was cancelled. The up-level entry has no name of its own to give.
LabelVerdict JudgeLabel(const wchar_t* label, ItemKind kind);

/// The name that `label` stands for. A file whose extension is not shown keeps it: only the stem was edited.
/// Blanks and dots at the end, which no file system keeps, are no part of it. False when the name is too long
/// for any path.
[[nodiscard]] bool NameFromLabel(std::wstring_view label, std::wstring_view oldName, bool extensionHidden,
                                 Path& name);
