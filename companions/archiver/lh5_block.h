#pragma once
// How "-lh5-" writes what was found to repeat: blocks of commands, each with Huffman codes of its own.

#include <cstdint>
#include <string>
#include <vector>

namespace archiver {

/// Bits in a row, the highest of each number first.
class BitWriter {
  public:
    void Put(unsigned count, std::uint32_t bits);
    /// Fills the last byte up.
    void Finish();
    /// The whole bytes so far, which are then forgotten.
    std::string Take();

  private:
    std::string bytes_;
    std::uint64_t pending_ = 0;
    unsigned pendingCount_ = 0;
};

/// A byte as it is, below 256, or 253 + the length of what is repeated from `distance` bytes before.
struct Lh5Command {
    std::uint16_t code;
    std::uint16_t distance;
};

constexpr std::size_t lh5ShortestRepeat = 3, lh5LongestRepeat = 256, lh5LargestDistance = 8191;

/// No more commands than need codes of 16 bits.
constexpr std::size_t lh5BlockSize = 4096;

void WriteLh5Block(const std::vector<Lh5Command>& commands, BitWriter& bits);

} // namespace archiver
