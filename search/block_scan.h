#pragma once
// Looks for a text in the bytes of a file, block by block.

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

/// Bytes of a block. A file is judged block by block from its beginning, however much is read at a time.
constexpr std::size_t scanBlockSize = 4096;

/// What one look at the file's bytes goes by. A match never goes on into the next block; instead, a beginning
/// of the text at the very end of a block counts as the text.
class BlockScan {
  public:
    /// Takes the text as bytes of the system's code page.
    BlockScan(std::wstring_view text, bool caseSensitive);

    /// Whether any block of `bytes`, which begin with a block, holds the text.
    bool Holds(std::span<const unsigned char> bytes) const;

  private:
    bool BlockHolds(std::span<const unsigned char> block) const;
    /// Whether the text begins at one of the first `places` bytes.
    bool MatchesWithin(std::span<const unsigned char> rest, std::size_t places) const;
    bool MatchesAt(std::span<const unsigned char> rest) const;
    bool IsMatch(std::size_t place, unsigned char byte) const {
        return byte == upper_[place] || byte == lower_[place];
    }

    bool caseSensitive_;
    // The text in both its cases; the same twice when the case matters.
    std::unique_ptr<unsigned char[]> upper_;
    std::unique_ptr<unsigned char[]> lower_;
    std::size_t length_ = 0; // 0: a text that the code page cannot hold, which no file has
};
