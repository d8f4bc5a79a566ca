#pragma once
// The caller's buffer for what there is to say.

#include <string_view>

namespace archiver {

/// What a caller's buffer is never written beyond, whatever it says its size is.
constexpr unsigned long largestReply = 2048; // bytes

/// Writes as much of `text` as `size` bytes at `output` take, with a terminator; nothing when they are none.
void WriteReply(wchar_t* output, unsigned long size, std::wstring_view text);

} // namespace archiver
