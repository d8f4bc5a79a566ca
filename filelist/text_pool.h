#pragma once
// Room for many short texts that all go at once.

#include <cstddef>
#include <string_view>
#include <vector>

#include "common/text.h"

/// Keeps texts in large blocks: cheaper than a block of the heap for each.
class TextPool {
  public:
    /// A terminated copy of `text`, which stays where it is until the pool is cleared or goes.
    const wchar_t* Keep(std::wstring_view text);
    /// The same; but when the last kept text reads alike, it serves again.
    const wchar_t* KeepOnce(std::wstring_view text);
    /// Lets go of all texts.
    void Clear();

  private:
    std::vector<OwnedText> blocks_;
    wchar_t* free_ = nullptr; // in the last block, if there is one
    std::size_t freeLength_ = 0;
    const wchar_t* last_ = nullptr;
};
