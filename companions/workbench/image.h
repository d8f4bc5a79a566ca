#pragma once
// The phone's executable in the memory of this process, at the addresses it is made for.

#include <cstdint>
#include <functional>

/// Where its parts lie, in bytes of memory from 0 on.
struct Image {
    std::uint32_t base = 0, end = 0;
    std::uint32_t codeBegin = 0, codeEnd = 0;
    std::uint32_t entry = 0;
    std::uint32_t stackSize = 0;
};

/// What the program is given for something it imports: an address to call. `name` is null for one that is
/// imported by its number.
using ImportFinder = std::function<std::uint32_t(const char* library, const char* name, unsigned number)>;

/// Lays the executable at `path` out, binds what it imports, and takes the right to write from what it should
/// not write. Ends the process with a line of explanation when it cannot.
Image MapImage(const wchar_t* path, const ImportFinder& find);
