#include "companions/archiver/crc16.h"

#include <array>

namespace archiver {

namespace {

constexpr std::array<std::uint16_t, 256> MakeTable() {
    std::array<std::uint16_t, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1) != 0 ? value >> 1 ^ 0xA001 : value >> 1;
        table[byte] = static_cast<std::uint16_t>(value);
    }
    return table;
}

constexpr std::array<std::uint16_t, 256> table = MakeTable();

} // namespace

std::uint16_t Crc16(std::uint16_t check, const void* bytes, std::size_t size) {
    const auto* next = static_cast<const unsigned char*>(bytes);
    for (const auto* end = next + size; next != end; ++next)
        check = static_cast<std::uint16_t>(check >> 8 ^ table[(check ^ *next) & 0xFF]);
    return check;
}

} // namespace archiver
