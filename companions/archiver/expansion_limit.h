#pragma once
// How far an archive may expand. A few kilobytes can be made to hold more than any disk does.

#include <cstdint>

namespace archiver {

/// What any archive may expand to, however small it is.
constexpr std::uint64_t freeExpansion = 64ull << 20;
/// Beyond that, how many times its own size.
constexpr std::uint64_t largestExpansion = 200;
/// What stays free on the disk.
constexpr std::uint64_t roomLeftFree = 1ull << 20;

/// Whether `expanded` bytes out of an archive of `size` bytes is more than an honest one holds.
constexpr bool ExpandsTooFar(std::uint64_t expanded, std::uint64_t size) {
    return expanded > freeExpansion && expanded / largestExpansion > size;
}

/// Whether an archive in the making comes so near to the limit that it must be packed less well: a huge file
/// of nothing but zeros packs to a thousandth, and must not look like a trap when it is extracted.
constexpr bool PacksTooWell(std::uint64_t content, std::uint64_t size) {
    return content > freeExpansion / 2 && content / (largestExpansion / 2) > size;
}

} // namespace archiver
