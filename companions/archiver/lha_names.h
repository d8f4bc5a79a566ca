#pragma once
// The name of a member of an LHA archive, from the bytes of its header. lhasa takes every byte 5C for a
// separator and makes capitals small byte by byte; in the letters of Japan these can be halves of others.

#include <string>
#include <string_view>

namespace archiver {

/// The whole name, with backslashes between its parts; empty when the header has none. `header` is one that
/// lhasa has found to be sound: its bytes with all extended ones.
std::wstring LhaName(std::string_view header);

} // namespace archiver
