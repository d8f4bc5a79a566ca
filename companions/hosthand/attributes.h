#pragma once
// What the phone calls a file's attributes, kept where Wine keeps them.

#include <cstdint>
#include <string>

/// Sets read-only (1), hidden (2) and system (4) as `attributes` say, of the entry itself: a link has none
/// and is left as it is, and so is what it leads to. False, with errno set, when that fails.
bool SetAttributes(int folder, const std::string& name, std::uint32_t attributes);
