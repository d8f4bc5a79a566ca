#pragma once
// The monkey's dice: the same seed throws the same.

#include <random>
#include <span>

class Chance {
  public:
    explicit Chance(unsigned seed) : engine_(seed) {}

    /// 0 to `most`.
    unsigned UpTo(unsigned most) { return static_cast<unsigned>(engine_()) % (most + 1); }
    /// Once in so many throws.
    bool OneIn(unsigned throws) { return UpTo(throws - 1) == 0; }

    template <class Range>
    auto& OneOf(Range& range) {
        return range[UpTo(static_cast<unsigned>(std::size(range)) - 1)];
    }

  private:
    std::mt19937 engine_; // gives the same numbers everywhere
};
