#include "filelist/search_results.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::wstring>;

Texts Names(const SearchResults& results) {
    Texts names;
    const SearchResult* previous = nullptr;
    for (const SearchResult* result = results.First(); result; result = result->next.get()) {
        EXPECT_EQ(result->previous, previous);
        previous = result;
        names.emplace_back(result->name);
    }
    return names;
}

void Fill(SearchResults& results, const Texts& names) {
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        results.Add(L"\\Aa", *name, 0, {}, 0);
}

TEST(SearchResults, KeepWhatTheyAreGiven) {
    SearchResults results;
    EXPECT_EQ(results.First(), nullptr);
    const SearchResult* result = results.Add(L"\\Aa", L"b.txt", 0x21, {3, 4}, 5);
    EXPECT_STREQ(result->folder, L"\\Aa");
    EXPECT_STREQ(result->name, L"b.txt");
    EXPECT_EQ(result->attributes, 0x21u);
    EXPECT_EQ(result->time.dwLowDateTime, 3u);
    EXPECT_EQ(result->time.dwHighDateTime, 4u);
    EXPECT_EQ(result->size, 5u);
    EXPECT_EQ(results.First(), result);
}

TEST(SearchResults, PutTheNewestFirst) {
    SearchResults results;
    for (const wchar_t* name : {L"1", L"2", L"3"})
        results.Add(L"", name, 0, {}, 0);
    EXPECT_EQ(Names(results), Texts({L"3", L"2", L"1"}));
}

TEST(SearchResults, AreRemovedAnywhere) {
    for (int removed = 0; removed < 3; ++removed) {
        SearchResults results;
        Fill(results, {L"0", L"1", L"2"});
        SearchResult* result = results.First();
        for (int step = 0; step < removed; ++step)
            result = result->next.get();
        SearchResult* next = result->next.get();
        EXPECT_EQ(results.Remove(result), next);
        Texts expected = {L"0", L"1", L"2"};
        expected.erase(expected.begin() + removed);
        EXPECT_EQ(Names(results), expected);
    }
}

TEST(SearchResults, AreRemovedToTheLast) {
    SearchResults results;
    Fill(results, {L"0", L"1"});
    while (results.First())
        results.Remove(results.First());
    EXPECT_TRUE(Names(results).empty());
}

TEST(SearchResults, AreFoundByExactlyTheirFolderAndName) {
    SearchResults results;
    Fill(results, {L"0", L"1"});
    EXPECT_STREQ(results.Find(L"\\Aa", L"1")->name, L"1");
    EXPECT_EQ(results.Find(L"\\aa", L"1"), nullptr);
    EXPECT_EQ(results.Find(L"\\Aa", L"2"), nullptr);
    EXPECT_EQ(results.Find(L"", L"1"), nullptr);
}

TEST(SearchResults, MoveToAnotherFolderOneByOne) {
    SearchResults results;
    Fill(results, {L"0", L"1"});
    results.SetFolder(*results.Find(L"\\Aa", L"1"), L"\\Bb");
    EXPECT_STREQ(results.Find(L"\\Aa", L"0")->folder, L"\\Aa");
    EXPECT_STREQ(results.Find(L"\\Bb", L"1")->folder, L"\\Bb");
    EXPECT_EQ(results.Find(L"\\Aa", L"1"), nullptr);
}

TEST(SearchResults, AreClearedInAnyNumber) {
    SearchResults results;
    for (int number = 0; number < 200000; ++number)
        results.Add(L"", L"x", 0, {}, 0);
    results.Clear();
    EXPECT_EQ(results.First(), nullptr);
}

} // namespace
