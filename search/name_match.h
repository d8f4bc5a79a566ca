#pragma once
// Names against patterns with "*" and "?".

#include <span>
#include <string_view>

/// Turns a text into the form that nameMatches compares, in place: names match whatever their case.
void FoldCase(std::span<wchar_t> text);

/// Whether `name` holds the pieces of `pattern` one after another; both have been folded. The match is bound
/// neither to the name's start nor to its end, and a "?" in front of a later "*" stands for itself.
bool nameMatches(std::wstring_view name, std::wstring_view pattern);
