#include "filelist/text_pool.h"

#include <algorithm>

namespace {

constexpr std::size_t blockLength = 4096;

} // namespace

const wchar_t* TextPool::Keep(std::wstring_view text) {
    const std::size_t length = text.size() + 1;
    if (blocks_.empty() || length > freeLength_) {
        freeLength_ = std::max(length, blockLength);
        blocks_.emplace_back(new wchar_t[freeLength_]);
        free_ = blocks_.back().get();
    }
    last_ = free_;
    *std::copy(text.begin(), text.end(), free_) = L'\0';
    free_ += length;
    freeLength_ -= length;
    return last_;
}

const wchar_t* TextPool::KeepOnce(std::wstring_view text) {
    return !blocks_.empty() && text == last_ ? last_ : Keep(text);
}

void TextPool::Clear() {
    blocks_.clear();
}
