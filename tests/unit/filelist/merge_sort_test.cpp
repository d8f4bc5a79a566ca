#include "filelist/merge_sort.h"

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Value = std::pair<int, std::size_t>; // a number to sort by, and where it stood

std::vector<Value> Values(std::size_t count, int distinct) {
    std::mt19937 random(static_cast<unsigned>(count) + 1);
    std::vector<Value> values;
    for (std::size_t place = 0; place < count; ++place)
        values.emplace_back(static_cast<int>(random() % static_cast<unsigned>(distinct)), place);
    return values;
}

/// The values through MergeSort.
template <class Compare>
std::vector<Value> Sorted(std::vector<Value> values, Compare compare) {
    std::vector<Value*> pointers;
    for (Value& value : values)
        pointers.push_back(&value);
    MergeSort(std::span(pointers), compare);
    std::vector<Value> sorted;
    for (const Value* value : pointers)
        sorted.push_back(*value);
    return sorted;
}

std::vector<std::size_t> Sizes() {
    std::vector<std::size_t> sizes;
    for (std::size_t size = 0; size <= 70; ++size)
        sizes.push_back(size);
    for (std::size_t size : {127u, 128u, 129u, 255u, 256u, 257u, 1000u, 4097u})
        sizes.push_back(size);
    return sizes;
}

int ByNumber(const Value& a, const Value& b) {
    return a.first - b.first;
}

TEST(MergeSort, SortsAnyNumberKeepingEqualOnesInOrder) {
    for (std::size_t size : Sizes()) {
        for (int distinct : {1, 2, 10, 100000}) {
            std::vector<Value> expected = Values(size, distinct);
            std::ranges::stable_sort(expected, {}, &Value::first);
            EXPECT_EQ(Sorted(Values(size, distinct), ByNumber), expected) << size << " of " << distinct;
        }
    }
}

TEST(MergeSort, SortsWhatIsTheWrongWayRound) {
    for (std::size_t size : Sizes()) {
        std::vector<Value> values;
        for (std::size_t place = 0; place < size; ++place)
            values.emplace_back(static_cast<int>(size - place), place);
        std::vector<Value> expected = values;
        std::ranges::reverse(expected);
        EXPECT_EQ(Sorted(values, ByNumber), expected) << size;
    }
}

TEST(MergeSort, LooksOnceAtEachPairOfWhatIsInOrder) {
    std::size_t calls = 0;
    std::vector<Value> values;
    for (std::size_t place = 0; place < 1024; ++place)
        values.emplace_back(static_cast<int>(place), place);
    EXPECT_EQ(Sorted(values,
                     [&](const Value& a, const Value& b) {
                         ++calls;
                         return ByNumber(a, b);
                     }),
              values);
    EXPECT_EQ(calls, 1023u);
}

TEST(MergeSort, EndsWithEveryRecordOnceWhateverTheComparatorAnswers) {
    std::mt19937 random(5);
    const auto always = [](int answer) { return [answer](const Value&, const Value&) { return answer; }; };
    const auto anything = [&](const Value&, const Value&) { return static_cast<int>(random() % 3) - 1; };
    const auto circle = [](const Value& a,
                           const Value& b) { // each before the next, the last before the first
        return (a.first + 1) % 3 == b.first ? -1 : (b.first + 1) % 3 == a.first ? 1 : 0;
    };
    for (std::size_t size : Sizes()) {
        const std::vector<Value> values = Values(size, 3);
        const auto holdsAll = [&](std::vector<Value> sorted) {
            std::ranges::sort(sorted, {}, &Value::second);
            return sorted == values;
        };
        EXPECT_TRUE(holdsAll(Sorted(values, always(-1)))) << size;
        EXPECT_TRUE(holdsAll(Sorted(values, always(0)))) << size;
        EXPECT_TRUE(holdsAll(Sorted(values, always(1)))) << size;
        EXPECT_TRUE(holdsAll(Sorted(values, anything))) << size;
        EXPECT_TRUE(holdsAll(Sorted(values, circle))) << size;
    }
}

TEST(MergeSort, TakesFewComparisonsEvenWhenNothingIsRegular) {
    std::size_t calls = 0;
    Sorted(Values(4096, 3), [&](const Value&, const Value&) {
        ++calls;
        return 1;
    });
    EXPECT_LE(calls, 4096u * 14);
}

} // namespace
