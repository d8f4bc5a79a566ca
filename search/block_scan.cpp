#include "search/block_scan.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/ce_api.h"

namespace {

/// Bytes looked at in one go: few enough to find the place again quickly, enough for wide registers.
constexpr std::size_t strideSize = 128;

/// The text in the system's code page, or null when it cannot be written in it.
std::unique_ptr<unsigned char[]> ToBytes(std::wstring_view text, std::size_t& length) {
    const int characters = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_ACP, 0, text.data(), characters, nullptr, 0, nullptr, nullptr);
    if (needed <= 0)
        return nullptr;
    auto bytes = std::make_unique<unsigned char[]>(static_cast<std::size_t>(needed) + 1);
    BOOL replaced = FALSE;
    WideCharToMultiByte(CP_ACP, 0, text.data(), characters, reinterpret_cast<char*>(bytes.get()), needed,
                        nullptr, &replaced);
    if (replaced)
        return nullptr;
    length = static_cast<std::size_t>(needed);
    return bytes;
}

/// A byte of the text, and how far behind the text's first it stands. With the bits set in which its two
/// cases differ, either case is `folded`.
struct Probe {
    unsigned char folded;
    unsigned char caseBits;
    std::size_t distance;
};

using Probes = std::array<Probe, 3>;

/// Whether the first `count` probes fit any of the stride's places. Without branches, so that the compiler
/// can take many places at a time: each place's differences make a number, which is 0 where all fit.
template <bool anyCase, std::size_t count>
bool StrideHolds(const unsigned char* stride, const Probes& probes) {
    unsigned char least = 0xFF;
    for (std::size_t i = 0; i < strideSize; ++i) {
        unsigned char difference = 0;
        for (std::size_t number = 0; number < count; ++number) {
            const Probe& probe = probes[number];
            const unsigned char byte = stride[i + probe.distance];
            difference |= (anyCase ? byte | probe.caseBits : byte) ^ probe.folded;
        }
        least = std::min(least, difference);
    }
    return least == 0;
}

/// Two bytes tell most strides from the text, three nearly all; one is all that a text of a letter has.
template <bool anyCase>
bool StrideMayHold(const unsigned char* stride, const Probes& probes) {
    if (probes[1].distance == 0)
        return StrideHolds<anyCase, 1>(stride, probes);
    return StrideHolds<anyCase, 2>(stride, probes) && StrideHolds<anyCase, 3>(stride, probes);
}

} // namespace

BlockScan::BlockScan(std::wstring_view text, bool caseSensitive) : caseSensitive_(caseSensitive) {
    upper_ = ToBytes(text, length_);
    if (length_ == 0)
        return;
    lower_ = std::make_unique<unsigned char[]>(length_ + 1);
    std::copy_n(upper_.get(), length_ + 1, lower_.get());
    if (!caseSensitive) {
        _strupr(reinterpret_cast<char*>(upper_.get()));
        _strlwr(reinterpret_cast<char*>(lower_.get()));
    }
}

bool BlockScan::Holds(std::span<const unsigned char> bytes) const {
    if (length_ == 0)
        return false;
    while (!bytes.empty()) {
        const std::size_t size = std::min(bytes.size(), scanBlockSize);
        if (BlockHolds(bytes.first(size)))
            return true;
        bytes = bytes.subspan(size);
    }
    return false;
}

bool BlockScan::BlockHolds(std::span<const unsigned char> block) const {
    // A text of fewer than three bytes is asked for its last one again.
    const auto probe = [&](std::size_t place) {
        place = std::min(place, length_ - 1);
        const auto caseBits = static_cast<unsigned char>(upper_[place] ^ lower_[place]);
        return Probe{static_cast<unsigned char>(lower_[place] | caseBits), caseBits, place};
    };
    const Probes probes = {probe(0), probe(1), probe(2)};
    const auto mayHold = caseSensitive_ ? StrideMayHold<false> : StrideMayHold<true>;
    const std::size_t reach = strideSize + probes[2].distance;
    std::size_t place = 0;
    while (place + probes[2].distance < block.size() && block.size() >= reach) {
        // The last stride begins where it just fits, over places that have been looked at.
        const std::size_t begin = std::min(place, block.size() - reach);
        if (mayHold(block.data() + begin, probes) && MatchesWithin(block.subspan(begin), strideSize))
            return true;
        place = begin + strideSize;
    }
    return MatchesWithin(block.subspan(place), block.size() - place);
}

bool BlockScan::MatchesWithin(std::span<const unsigned char> rest, std::size_t places) const {
    for (std::size_t i = 0; i < places; ++i) {
        if (MatchesAt(rest.subspan(i)))
            return true;
    }
    return false;
}

bool BlockScan::MatchesAt(std::span<const unsigned char> rest) const {
    const std::size_t compared = std::min(rest.size(), length_);
    for (std::size_t i = 0; i < compared; ++i) {
        if (!IsMatch(i, rest[i]))
            return false;
    }
    return true;
}
