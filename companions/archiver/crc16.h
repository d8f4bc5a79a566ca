#pragma once
// The check of LHA archives.

#include <cstddef>
#include <cstdint>

namespace archiver {

/// The check of bytes that follow those that gave `check`; of the first ones with 0.
std::uint16_t Crc16(std::uint16_t check, const void* bytes, std::size_t size);

} // namespace archiver
