#include "filelist/merge_sort.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct Card {
    int value = 0;
    int place = 0; // before the sort
};

std::vector<Card> Deal(int count, int values) {
    std::mt19937 random(7);
    std::vector<Card> cards(static_cast<std::size_t>(count));
    for (int place = 0; Card & card : cards)
        card = {static_cast<int>(random() % static_cast<unsigned>(values)), place++};
    return cards;
}

std::vector<Card*> PointersTo(std::vector<Card>& cards) {
    std::vector<Card*> pointers;
    for (Card& card : cards)
        pointers.push_back(&card);
    return pointers;
}

bool SameCards(std::vector<Card*> a, std::vector<Card*> b) {
    std::ranges::sort(a);
    std::ranges::sort(b);
    return a == b;
}

} // namespace

TEST(MergeSort, SortsEverySizeAndKeepsTheOrderOfEquals) {
    for (int count = 0; count <= 70; ++count) {
        std::vector<Card> cards = Deal(count, 9);
        std::vector<Card*> order = PointersTo(cards);
        MergeSort(std::span(order), [](const Card& a, const Card& b) { return a.value - b.value; });
        for (std::size_t index = 1; index < order.size(); ++index) {
            EXPECT_LE(order[index - 1]->value, order[index]->value);
            if (order[index - 1]->value == order[index]->value) {
                EXPECT_LT(order[index - 1]->place, order[index]->place);
            }
        }
    }
}

TEST(MergeSort, ComparatorWithoutAnyOrderLosesNothing) {
    for (int count : {1, 2, 3, 1000, 4097}) {
        std::vector<Card> cards = Deal(count, 5);
        std::vector<Card*> order = PointersTo(cards);
        const std::vector<Card*> before = order;
        MergeSort(std::span(order), [](const Card&, const Card&) { return 1; });
        EXPECT_TRUE(SameCards(order, before));
        std::mt19937 random(3);
        MergeSort(std::span(order),
                  [&](const Card&, const Card&) { return static_cast<int>(random() % 3) - 1; });
        EXPECT_TRUE(SameCards(order, before));
    }
}
