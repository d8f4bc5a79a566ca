#pragma once
// The header of a member of an LHA archive, as it is written: level 2, the first whose names may be long and
// whose time is the world's.

#include <cstdint>
#include <string>
#include <string_view>

namespace archiver {

struct LhaMember {
    /// "-lh0-" stored, "-lhd-" a folder.
    std::string_view method;
    /// In UTF-8, with slashes between its parts and none at the end.
    std::string name;
    std::uint32_t packedSize = 0;
    std::uint32_t size = 0;
    std::uint16_t check = 0;
    /// Seconds since 1970.
    std::uint32_t time = 0;
};

/// Always of the same size for the same name and method.
std::string LhaHeader(const LhaMember& member);

} // namespace archiver
