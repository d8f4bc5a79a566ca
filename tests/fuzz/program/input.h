#pragma once
// A fuzzer's input, taken apart, and what must hold of what comes of it.

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <fuzzer/FuzzedDataProvider.h>

/// Ends the run, by which the input is kept, unless it holds.
inline void Expect(bool holds) {
    if (!holds)
        std::abort();
}

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : provider_(data, size) {}

    bool Bool() { return provider_.ConsumeBool(); }

    template <class Number>
    Number Any() {
        return provider_.ConsumeIntegral<Number>();
    }

    std::size_t UpTo(std::size_t most) { return provider_.ConsumeIntegralInRange<std::size_t>(0, most); }

    /// At most so many characters, none of them the end of a text. Most are letters and what texts of the
    /// program are made of, for a single byte says nothing of other alphabets.
    std::wstring Text(std::size_t most) {
        std::wstring text;
        for (const std::uint8_t byte : Bytes(most)) {
            constexpr wchar_t others[] = {0xE4, 0xC4, 0xDF, 0x131, 0x3A9, 0x65E5, 0xD83D, 0xDE00, 0xFFFF};
            text += byte == 0 ? L' ' : byte < 0x80 ? static_cast<wchar_t>(byte) : others[byte % 9];
        }
        return text;
    }

    /// At most so many of the given characters: few make what is the same twice likely.
    std::wstring TextOf(std::wstring_view characters, std::size_t most) {
        std::wstring text;
        for (const std::uint8_t byte : Bytes(most))
            text += characters[byte % characters.size()];
        return text;
    }

    std::vector<std::uint8_t> Bytes(std::size_t most) {
        const std::string bytes = provider_.ConsumeRandomLengthString(most);
        return {bytes.begin(), bytes.end()};
    }

    std::vector<std::uint8_t> Rest() { return provider_.ConsumeRemainingBytes<std::uint8_t>(); }

  private:
    FuzzedDataProvider provider_;
};
