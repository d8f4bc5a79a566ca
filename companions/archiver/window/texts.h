#pragma once
// Numbers, sizes and moments as the user's locale writes them.

#include <cstdint>
#include <string>

#include <windows.h>

namespace archiver {

/// With its groups set apart.
std::wstring NumberText(std::uint64_t number);

/// The short date and the time, by the local clock.
std::wstring MomentText(const FILETIME& time);

/// "1.25 of 20.00 MB", both in the unit that the whole is said in.
std::wstring ShareText(std::uint64_t done, std::uint64_t whole);

} // namespace archiver
