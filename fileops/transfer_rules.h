#pragma once
// What copying and moving decide without a window: which requests are refused, and how copies are named.

#include <span>
#include <string_view>

#include "common/path.h"
#include "filelist/selection_entry.h"

/// The folders of a request for a transfer.
struct TransferRequest {
    std::span<const SelectionEntry> entries;
    std::wstring_view targetFolder;
    std::wstring_view systemFolder; // the one that jobs never take from its place
    bool isMove = false;
};

/// The message that refuses the request, or null when it can be carried out. Folders are told apart by where
/// they really are.
const wchar_t* RefuseTransfer(const TransferRequest& request);

/// The name of the last folder of a path; a backslash for the root.
std::wstring_view FolderCaption(std::wstring_view folder);

/// The highest number that a copy within its folder gets.
constexpr int lastCopyNumber = 511;

/// Becomes the path of copy number `number` of `name` in `folder`. False when it would be too long.
[[nodiscard]] bool AssignCopyName(Path& path, std::wstring_view folder, std::wstring_view name, int number);
