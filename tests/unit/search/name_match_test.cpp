#include "search/name_match.h"

#include <string>

#include <gtest/gtest.h>

namespace {

std::wstring Folded(std::wstring text) {
    FoldCase(text);
    return text;
}

bool Found(const std::wstring& name, const std::wstring& pattern) {
    return nameMatches(Folded(name), Folded(pattern));
}

} // namespace

TEST(NameMatch, IsBoundToNeitherEnd) {
    EXPECT_TRUE(Found(L"readme.txt", L"TXT"));
    EXPECT_TRUE(Found(L"MYDOC.TXT", L"DOC"));
    EXPECT_TRUE(Found(L"A.TXT", L"*.TX"));
    EXPECT_TRUE(Found(L"AB", L"B*"));
    EXPECT_FALSE(Found(L"AB", L"BA"));
}

TEST(NameMatch, IgnoresCaseOfAnyLetters) {
    EXPECT_TRUE(Found(L"ReadMe", L"rEADmE"));
    EXPECT_TRUE(Found(L"\u00dcbung.txt", L"\u00fcBUNG"));
    EXPECT_TRUE(Found(L"\u03b1\u03b2", L"\u0391\u0392"));
}

TEST(NameMatch, StarsAlonePassEverything) {
    EXPECT_TRUE(Found(L"anything", L"*"));
    EXPECT_TRUE(Found(L"anything", L"***"));
    EXPECT_TRUE(Found(L"", L"*"));
}

TEST(NameMatch, RunsStandInTheirOrder) {
    EXPECT_TRUE(Found(L"annual report 2006.doc", L"ann*2006"));
    EXPECT_TRUE(Found(L"annual report 2006.doc", L"*rep*.d*"));
    EXPECT_FALSE(Found(L"2006 annual", L"ann*2006"));
    EXPECT_FALSE(Found(L"aba", L"ab*ba")); // runs do not share letters
}

TEST(NameMatch, QuestionMarkWithoutALaterStarIsAnyCharacter) {
    EXPECT_TRUE(Found(L"ABC", L"A?C"));
    EXPECT_TRUE(Found(L"ABC", L"???"));
    EXPECT_FALSE(Found(L"ABC", L"????"));
    EXPECT_FALSE(Found(L"AC", L"*A?C"));
    EXPECT_TRUE(Found(L"XABC", L"*A?C"));
}

TEST(NameMatch, QuestionMarkInARunBeforeAStarIsItself) {
    EXPECT_FALSE(Found(L"ABC", L"A?C*"));
    EXPECT_TRUE(Found(L"A?C", L"A?C*"));
}

TEST(NameMatch, QuestionMarkThatBeginsAStepIsAnyCharacterEvenBeforeAStar) {
    EXPECT_TRUE(Found(L"ABC", L"?B*"));
    EXPECT_TRUE(Found(L"ABC", L"*?C*"));
}

TEST(NameMatch, NothingIsLeftForThePatternAtTheNamesEnd) {
    EXPECT_FALSE(Found(L"AB", L"ABC"));
    EXPECT_FALSE(Found(L"AB", L"AB?"));
    EXPECT_TRUE(Found(L"AB", L"AB*"));
    EXPECT_TRUE(Found(L"AB", L"AB**"));
    EXPECT_FALSE(Found(L"", L"A"));
}

TEST(NameMatch, ARunIsTakenWhereItFirstStands) {
    EXPECT_TRUE(Found(L"abcab1", L"ab?ab"));
    EXPECT_FALSE(Found(L"ab1ab", L"ab?1")); // the first "ab" counts, and "1" is what "?" stands for
}
