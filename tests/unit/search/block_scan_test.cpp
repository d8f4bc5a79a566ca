#include "search/block_scan.h"

#include <algorithm>
#include <cctype>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

std::span<const unsigned char> Bytes(const std::string& text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

bool Found(const std::string& content, std::wstring_view text, bool caseSensitive = true) {
    return BlockScan(text, caseSensitive).Holds(Bytes(content));
}

std::string Filling(std::size_t length) {
    return std::string(length, '.');
}

/// The rule itself, one place after another.
bool FoundPlainly(const std::string& content, const std::string& text, bool caseSensitive) {
    const auto same = [&](char a, char b) {
        return caseSensitive ? a == b : std::toupper(a) == std::toupper(b);
    };
    for (std::size_t block = 0; block < content.size(); block += scanBlockSize) {
        const std::string part = content.substr(block, scanBlockSize);
        for (std::size_t i = 0; i < part.size(); ++i) {
            const std::size_t compared = std::min(text.size(), part.size() - i);
            if (std::equal(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(compared),
                           part.begin() + static_cast<std::ptrdiff_t>(i), same))
                return true;
        }
    }
    return false;
}

} // namespace

TEST(BlockScan, FindsTheTextAnywhereInABlock) {
    for (const std::size_t place : {0, 1, 62, 63, 64, 65, 127, 128, 4000, 4091})
        EXPECT_TRUE(Found(Filling(place) + "HELLO" + Filling(200), L"HELLO")) << place;
    EXPECT_FALSE(Found(Filling(5000), L"HELLO"));
    EXPECT_FALSE(Found(Filling(100) + "HELO" + Filling(100), L"HELLO"));
}

TEST(BlockScan, NothingIsInAnEmptyFile) {
    EXPECT_FALSE(Found("", L"HELLO"));
}

TEST(BlockScan, MindsTheCaseWhenAsked) {
    EXPECT_FALSE(Found(Filling(70) + "Hello" + Filling(70), L"HELLO", true));
    EXPECT_TRUE(Found(Filling(70) + "hElLo" + Filling(70), L"HeLLO", false));
}

TEST(BlockScan, ABeginningOfTheTextAtTheFilesEndIsEnough) {
    EXPECT_TRUE(Found("SAY HE", L"HELLO"));
    EXPECT_TRUE(Found("SAY H", L"HELLO"));
    EXPECT_FALSE(Found("SAY HE.", L"HELLO"));
}

TEST(BlockScan, ABeginningOfTheTextAtABlocksEndIsEnough) {
    EXPECT_TRUE(Found(Filling(4094) + "HE" + Filling(5000), L"HELLO"));
    EXPECT_TRUE(Found(Filling(3 * 4096 - 1) + "H" + Filling(5000), L"HELLO"));
    EXPECT_FALSE(Found(Filling(4093) + "HE" + Filling(5000), L"HELLO"));
}

TEST(BlockScan, TheTextDoesNotGoOnIntoTheNextBlock) {
    // Only the beginning in the first block counts; the rest alone is no match.
    EXPECT_FALSE(Found(Filling(4096) + "LLO" + Filling(50), L"HELLO"));
    EXPECT_TRUE(Found(Filling(4094) + "HELLO" + Filling(50), L"HELLO"));
}

TEST(BlockScan, FindsASingleByte) {
    EXPECT_TRUE(Found(Filling(70) + "x" + Filling(70), L"x"));
    EXPECT_TRUE(Found(Filling(4095) + "X", L"x", false));
    EXPECT_FALSE(Found(Filling(4095) + "X", L"x"));
    EXPECT_FALSE(Found(Filling(9000), L"x", false));
}

TEST(BlockScan, FindsTextsOfTheCodePage) {
    EXPECT_TRUE(Found("gr\xfc\xdf"
                      "e...",
                      L"gr\u00fc\u00dfe"));
    EXPECT_FALSE(Found("gr??e...", L"gr\u00fc\u00dfe"));
}

TEST(BlockScan, ATextOutsideTheCodePageIsNowhere) {
    EXPECT_FALSE(Found("??? ?", L"\u03b1\u03b2\u0416"));
    EXPECT_FALSE(Found("...?", L"\u0416"));
}

TEST(BlockScan, ATextLongerThanABlockMatchesByItsBeginning) {
    const std::wstring text(5000, L'a');
    EXPECT_TRUE(Found(std::string(4096, 'a'), text));
    EXPECT_FALSE(Found(std::string(4095, 'a') + "b", text));
}

TEST(BlockScan, DecidesAsOnePlaceAfterAnotherWould) {
    std::mt19937 random(2006);
    const auto letters = [&](std::size_t length) {
        std::string text(length, ' ');
        std::generate(text.begin(), text.end(), [&] { return "abAB."[random() % 5]; });
        return text;
    };
    int found = 0;
    for (int round = 0; round < 3000; ++round) {
        const std::string text = letters(1 + random() % 14);
        const std::string content = letters(random() % 9000);
        const bool caseSensitive = random() % 2 != 0;
        const bool expected = FoundPlainly(content, text, caseSensitive);
        ASSERT_EQ(Found(content, std::wstring(text.begin(), text.end()), caseSensitive), expected)
            << text << " in " << content.size() << " bytes";
        found += expected;
    }
    EXPECT_GT(found, 500);
    EXPECT_LT(found, 2500);
}
