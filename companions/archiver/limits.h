#pragma once
// How much of an archive is taken seriously. What its members say of their sizes is held against the free
// space before anything is touched, and each of them to its word while it is unpacked.

#include <cstddef>
#include <cstdint>

namespace archiver {

/// What any archive may expand to, however small it is.
constexpr std::uint64_t freeExpansion = 64ull << 20;
/// Beyond that, how many times its size a ZIP archive can: deflating makes nothing smaller than a 1032nd, so
/// one that claims more lies, as with members that share one content.
constexpr std::uint64_t largestExpansion = 1040;

/// Members of an archive that is extracted.
constexpr std::size_t mostMembers = 500'000;
/// Folders within one another, of an archive that is extracted.
constexpr std::size_t deepestFolder = 100;

} // namespace archiver
