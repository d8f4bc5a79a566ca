#pragma once
// A merge sort for comparators that are irregular by design: whatever they answer, it stays within its
// records and ends. The library's sorts promise neither.

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

/// Sorts the pointers in `items`, keeping the order of those that compare equal. `compare(a, b)` is positive
/// when b comes before a. Linear when the items are already in order.
template <class T, class Compare>
void MergeSort(std::span<T*> items, Compare compare) {
    std::vector<T*> scratch(items.size());
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t begin = 0; begin + width < items.size(); begin += 2 * width) {
            const std::size_t middle = begin + width;
            const std::size_t end = std::min(middle + width, items.size());
            if (compare(*items[middle - 1], *items[middle]) <= 0)
                continue;
            std::copy(items.data() + begin, items.data() + end, scratch.data() + begin);
            std::size_t left = begin;
            std::size_t right = middle;
            for (std::size_t out = begin; out < end; ++out) {
                const bool takeRight =
                    left == middle || (right < end && compare(*scratch[left], *scratch[right]) > 0);
                items[out] = scratch[takeRight ? right++ : left++];
            }
        }
    }
}
