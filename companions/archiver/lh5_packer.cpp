#include "companions/archiver/lh5_packer.h"

#include <algorithm>

namespace archiver {

namespace {

constexpr std::size_t hashSize = 1 << 14;
constexpr int longestSearch = 64; // places looked at for one repeat

std::size_t HashOf(const char* next) {
    const auto byte = [&](int at) { return static_cast<std::size_t>(static_cast<unsigned char>(next[at])); };
    return (byte(0) << 10 ^ byte(1) << 5 ^ byte(2)) * 0x9E5F % hashSize;
}

} // namespace

Lh5Packer::Lh5Packer() : latest_(hashSize) {}

void Lh5Packer::Learn(std::size_t at) {
    if (at + lh5ShortestRepeat > window_.size())
        return;
    std::size_t& latest = latest_[HashOf(window_.data() + at)];
    earlier_[at] = latest;
    latest = at + 1;
}

/// The longest repeat that begins at a place; shorter than the shortest when there is none.
Lh5Packer::Repeat Lh5Packer::FindRepeat(std::size_t at) const {
    Repeat best{0, 0};
    const std::size_t most = std::min(lh5LongestRepeat, window_.size() - at);
    if (most < lh5ShortestRepeat)
        return best;
    std::size_t found = latest_[HashOf(window_.data() + at)];
    for (int search = 0; found != 0 && search < longestSearch; ++search, found = earlier_[found - 1]) {
        const std::size_t place = found - 1;
        if (at - place > lh5LargestDistance)
            break;
        const char* here = window_.data() + at;
        const auto length =
            static_cast<std::size_t>(std::mismatch(here, here + most, window_.data() + place).first - here);
        if (length > best.length)
            best = {length, at - place};
        if (length == most)
            break;
    }
    return best;
}

void Lh5Packer::Add(Lh5Command command) {
    commands_.push_back(command);
    if (commands_.size() < lh5BlockSize)
        return;
    WriteLh5Block(commands_, bits_);
    commands_.clear();
}

std::string Lh5Packer::Pack(const char* bytes, std::size_t size) {
    if (window_.size() > lh5LargestDistance)
        window_.erase(0, window_.size() - lh5LargestDistance);
    std::size_t at = window_.size();
    window_.append(bytes, size);
    std::fill(latest_.begin(), latest_.end(), 0);
    earlier_.assign(window_.size(), 0);
    for (std::size_t known = 0; known < at; ++known)
        Learn(known);
    while (at < window_.size()) {
        const Repeat repeat = FindRepeat(at);
        const bool repeats = repeat.length >= lh5ShortestRepeat;
        if (repeats)
            Add({static_cast<std::uint16_t>(253 + repeat.length),
                 static_cast<std::uint16_t>(repeat.distance)});
        else
            Add({static_cast<unsigned char>(window_[at]), 0});
        for (const std::size_t end = at + (repeats ? repeat.length : 1); at < end; ++at)
            Learn(at);
    }
    return bits_.Take();
}

std::string Lh5Packer::Finish() {
    if (!commands_.empty())
        WriteLh5Block(commands_, bits_);
    commands_.clear();
    bits_.Finish();
    return bits_.Take();
}

} // namespace archiver
