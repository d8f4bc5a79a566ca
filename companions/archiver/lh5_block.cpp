#include "companions/archiver/lh5_block.h"

#include <array>
#include <bit>
#include <utility>

#include "companions/archiver/huffman.h"

namespace archiver {

namespace {

constexpr std::size_t commandCodes = 510, distanceCodes = 14, lengthCodes = 19;
constexpr unsigned commandBits = 9, distanceBits = 4, lengthBits = 5;

/// A length of a code, or a run of lengths of 0, as it is written.
struct LengthToken {
    std::uint32_t symbol;
    unsigned extraBits;
    std::uint32_t extra;
};

/// A distance is written as the number of its bits and those behind its first.
unsigned DistanceSymbol(const Lh5Command& command) {
    return static_cast<unsigned>(std::bit_width(command.distance - 1u));
}

std::vector<LengthToken> TokensOf(const HuffmanCode& code) {
    std::vector<LengthToken> tokens;
    for (std::size_t at = 0; at <= code.last;) {
        if (const unsigned length = code.lengths[at]; length > 0) {
            tokens.push_back({length + 2, 0, 0});
            ++at;
            continue;
        }
        std::uint32_t run = 0;
        while (code.lengths[at] == 0) {
            ++run;
            ++at;
        }
        if (run >= 20) {
            tokens.push_back({2, 9, run - 20});
            continue;
        }
        if (run == 19) { // neither kind of run has it
            tokens.push_back({0, 0, 0});
            --run;
        }
        if (run >= 3)
            tokens.push_back({1, 4, run - 3});
        else
            tokens.insert(tokens.end(), run, {0, 0, 0});
    }
    return tokens;
}

/// The lengths of a small code: 3 bits each, longer ones as so many ones more. In the code for lengths, a run
/// of zeros behind the third is only counted.
void WriteSmallCode(const HuffmanCode& code, unsigned countBits, bool isForLengths, BitWriter& bits) {
    if (code.used <= 1) {
        bits.Put(countBits, 0);
        bits.Put(countBits, code.last);
        return;
    }
    bits.Put(countBits, code.last + 1);
    for (std::size_t at = 0; at <= code.last;) {
        const unsigned length = code.lengths[at++];
        if (length < 7)
            bits.Put(3, length);
        else
            bits.Put(length - 3, (1u << (length - 3)) - 2);
        if (isForLengths && at == 3) {
            while (at < 6 && at <= code.last && code.lengths[at] == 0)
                ++at;
            bits.Put(2, static_cast<std::uint32_t>(at - 3));
        }
    }
}

void WriteCommandCode(const HuffmanCode& code, BitWriter& bits) {
    if (code.used <= 1) {
        bits.Put(lengthBits, 0);
        bits.Put(lengthBits, 0);
        bits.Put(commandBits, 0);
        bits.Put(commandBits, code.last);
        return;
    }
    const std::vector<LengthToken> tokens = TokensOf(code);
    std::array<std::uint32_t, lengthCodes> occurrences{};
    for (const LengthToken& token : tokens)
        ++occurrences[token.symbol];
    const HuffmanCode lengths = MakeHuffmanCode(occurrences);
    WriteSmallCode(lengths, lengthBits, true, bits);
    bits.Put(commandBits, code.last + 1);
    for (const LengthToken& token : tokens) {
        bits.Put(lengths.lengths[token.symbol], lengths.codes[token.symbol]);
        bits.Put(token.extraBits, token.extra);
    }
}

} // namespace

void BitWriter::Put(unsigned count, std::uint32_t bits) {
    pending_ = pending_ << count | bits;
    pendingCount_ += count;
    while (pendingCount_ >= 8) {
        pendingCount_ -= 8;
        bytes_ += static_cast<char>(pending_ >> pendingCount_ & 0xFF);
    }
}

void BitWriter::Finish() {
    if (pendingCount_ > 0)
        Put(8 - pendingCount_, 0);
}

std::string BitWriter::Take() {
    return std::exchange(bytes_, {});
}

void WriteLh5Block(const std::vector<Lh5Command>& commands, BitWriter& bits) {
    std::array<std::uint32_t, commandCodes> commandCounts{};
    std::array<std::uint32_t, distanceCodes> distanceCounts{};
    for (const Lh5Command& command : commands) {
        ++commandCounts[command.code];
        if (command.code >= 256)
            ++distanceCounts[DistanceSymbol(command)];
    }
    const HuffmanCode commandCode = MakeHuffmanCode(commandCounts);
    const HuffmanCode distanceCode = MakeHuffmanCode(distanceCounts);
    bits.Put(16, static_cast<std::uint32_t>(commands.size()));
    WriteCommandCode(commandCode, bits);
    WriteSmallCode(distanceCode, distanceBits, false, bits);
    for (const Lh5Command& command : commands) {
        bits.Put(commandCode.lengths[command.code], commandCode.codes[command.code]);
        if (command.code < 256)
            continue;
        const unsigned symbol = DistanceSymbol(command);
        bits.Put(distanceCode.lengths[symbol], distanceCode.codes[symbol]);
        if (symbol > 1)
            bits.Put(symbol - 1, (command.distance - 1u) & ((1u << (symbol - 1)) - 1));
    }
}

} // namespace archiver
