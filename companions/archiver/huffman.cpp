#include "companions/archiver/huffman.h"

#include <algorithm>
#include <functional>
#include <queue>

namespace archiver {

namespace {

/// Joins the two rarest of what is left until one is left, and makes the codes below longer each time.
void FindLengths(std::span<const std::uint32_t> occurrences, HuffmanCode& code) {
    using Tree = std::pair<std::uint32_t, std::size_t>; // how often, which
    std::priority_queue<Tree, std::vector<Tree>, std::greater<>> trees;
    std::vector<std::vector<std::size_t>> members;
    for (std::size_t symbol = 0; symbol < occurrences.size(); ++symbol)
        if (occurrences[symbol] > 0) {
            trees.emplace(occurrences[symbol], members.size());
            members.push_back({symbol});
        }
    while (trees.size() > 1) {
        const Tree one = trees.top();
        trees.pop();
        const Tree other = trees.top();
        trees.pop();
        std::vector<std::size_t>& joined = members[one.second];
        joined.insert(joined.end(), members[other.second].begin(), members[other.second].end());
        for (const std::size_t symbol : joined)
            ++code.lengths[symbol];
        trees.emplace(one.first + other.first, one.second);
    }
}

} // namespace

HuffmanCode MakeHuffmanCode(std::span<const std::uint32_t> occurrences) {
    HuffmanCode code;
    code.lengths.resize(occurrences.size());
    code.codes.resize(occurrences.size());
    for (std::uint32_t symbol = 0; symbol < occurrences.size(); ++symbol)
        if (occurrences[symbol] > 0) {
            ++code.used;
            code.last = symbol;
        }
    FindLengths(occurrences, code);

    std::uint32_t next = 0;
    const unsigned longest = *std::max_element(code.lengths.begin(), code.lengths.end());
    for (unsigned length = 1; length <= longest; ++length, next <<= 1)
        for (std::size_t symbol = 0; symbol < code.lengths.size(); ++symbol)
            if (code.lengths[symbol] == length)
                code.codes[symbol] = next++;
    return code;
}

} // namespace archiver
