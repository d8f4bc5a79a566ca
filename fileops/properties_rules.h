#pragma once
// What the properties dialogs decide without a window.

#include <span>
#include <string_view>

#include "filelist/file_item.h"

enum class ObjectKind { File, Shortcut, Folder };

/// What the properties of an entry are about.
ObjectKind ObjectKindOf(ItemKind kind, std::wstring_view name);

/// The attributes after a click on the box of `attribute`. Taking the mark away turns the bit over, which
/// clears it: a box is marked exactly while its bit is set.
DWORD AttributesAfterClick(DWORD attributes, DWORD attribute, bool checked);

/// The size in kilobytes or megabytes, and in bytes. Empty when the size is not known.
void FormatPropertySize(DWORD size, std::span<wchar_t> out);

/// The file that a shortcut's target text names.
std::wstring_view FileOfTarget(std::wstring_view target);
