#pragma once
// Packs as "-lh5-" does: what was there within the last 8 KB is only pointed to.

#include <cstddef>
#include <string>
#include <vector>

#include "companions/archiver/lh5_block.h"

namespace archiver {

class Lh5Packer {
  public:
    Lh5Packer();
    /// Takes the next bytes and returns what is packed so far. Nothing repeats beyond one call's bytes, so
    /// they should be many.
    std::string Pack(const char* bytes, std::size_t size);
    /// Returns the rest.
    std::string Finish();

  private:
    struct Repeat {
        std::size_t length;
        std::size_t distance;
    };
    void Learn(std::size_t at);
    Repeat FindRepeat(std::size_t at) const;
    void Add(Lh5Command command);

    std::string window_;                        // what can be pointed to, and behind it what is packed
    std::vector<std::size_t> latest_, earlier_; // places with the same next bytes, plus 1
    std::vector<Lh5Command> commands_;
    BitWriter bits_;
};

} // namespace archiver
