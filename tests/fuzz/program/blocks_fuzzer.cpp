// The search for a text in a file's bytes, compared with a plain one.

#include <algorithm>
#include <cctype>

#include "search/block_scan.h"
#include "tests/fuzz/program/input.h"

namespace {

bool SameByte(unsigned char a, unsigned char b, bool caseSensitive) {
    return a == b || (!caseSensitive && std::tolower(a) == std::tolower(b));
}

/// Block by block; a beginning of the text at a block's end counts.
bool PlainlyHolds(std::span<const unsigned char> bytes, std::string_view text, bool caseSensitive) {
    if (text.empty())
        return false;
    for (std::size_t begin = 0; begin < bytes.size(); begin += scanBlockSize) {
        const auto block = bytes.subspan(begin, std::min(scanBlockSize, bytes.size() - begin));
        for (std::size_t place = 0; place < block.size(); ++place) {
            std::size_t same = 0;
            while (same < text.size() && place + same < block.size() &&
                   SameByte(block[place + same], static_cast<unsigned char>(text[same]), caseSensitive))
                ++same;
            if (same == text.size() || place + same == block.size())
                return true;
        }
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const bool caseSensitive = input.Bool();
    std::wstring text;
    std::string bytes;
    for (std::uint8_t byte : input.Bytes(20)) {
        byte = byte == 0 ? 1 : byte & 0x7F; // alike in every code page
        text += static_cast<wchar_t>(byte);
        bytes += static_cast<char>(byte);
    }
    // The text stands near the end of a block, or is cut there.
    std::vector<std::uint8_t> file(input.UpTo(2 * scanBlockSize), input.Any<std::uint8_t>());
    const std::size_t place = input.UpTo(file.size());
    const std::size_t length = std::min(input.UpTo(bytes.size()), file.size() - place);
    std::copy_n(bytes.begin(), length, file.begin() + static_cast<std::ptrdiff_t>(place));
    const std::vector<std::uint8_t> rest = input.Rest();
    file.insert(file.end(), rest.begin(), rest.end());
    file.shrink_to_fit();
    Expect(BlockScan(text, caseSensitive).Holds(file) == PlainlyHolds(file, bytes, caseSensitive));
    return 0;
}
