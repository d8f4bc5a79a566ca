#pragma once
// Codes of few bits for what is frequent.

#include <cstdint>
#include <span>
#include <vector>

namespace archiver {

struct HuffmanCode {
    /// The bits of each symbol's code; 0 for one that does not occur.
    std::vector<unsigned> lengths;
    /// The codes, which follow from the lengths alone: shorter ones first, then in the symbols' order.
    std::vector<std::uint32_t> codes;
    /// How many symbols occur, and the last of them.
    int used = 0;
    std::uint32_t last = 0;
};

/// The best code for symbols that occur so often. A code of n bits needs more than 1.6^n occurrences
/// altogether, so 4,096 of them never need more than 16 bits.
HuffmanCode MakeHuffmanCode(std::span<const std::uint32_t> occurrences);

} // namespace archiver
