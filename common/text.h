#pragma once
// Small helpers for wide texts: the program has no string class of its own, texts live in fixed buffers,
// owned blocks and views.

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

/// A heap text with its terminating zero, or null.
using OwnedText = std::unique_ptr<wchar_t[]>;

/// A terminated copy of `text`.
OwnedText CopyText(std::wstring_view text);

/// Copies as much of `text` as fits into `out`, always terminated. `out` has room for at least one character.
void CopyTextTo(std::span<wchar_t> out, std::wstring_view text);

/// Formats like wprintf ("%s" is a wide text) into `out`, cut to fit and always terminated.
/// Returns the length of what was written.
std::size_t FormatText(std::span<wchar_t> out, const wchar_t* format, ...);
