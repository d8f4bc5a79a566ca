#pragma once
// Sentences with names in them, in places too small for long names: the names give way, not the sentence.

#include <span>
#include <string_view>

#include "platform/ce_api.h"

/// Copies a name of at most `limit` characters whole; of a longer one its beginning and its end, which tell
/// it from others, with dots between.
void CutName(std::span<wchar_t> out, std::wstring_view name, std::size_t limit);

/// Whether the control shows the whole of `text`, its lines broken at blanks.
bool FitsControl(HWND control, const wchar_t* text);

/// Shows in the control what `write(limit)` gives, a terminated text with no name longer than `limit`, for
/// the largest limit with which it fits.
template <class Write>
void ShowFittingText(HWND control, Write write) {
    constexpr std::size_t least = 8;
    constexpr std::size_t most = 260;
    std::size_t limit = most;
    while (limit > least && !FitsControl(control, write(limit)))
        limit -= limit > 64 ? 16 : 1;
    SetWindowTextW(control, write(limit));
}
