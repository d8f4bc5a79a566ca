#include "filelist/search_results.h"

SearchResult* SearchResults::Add(std::wstring_view folder, std::wstring_view name, DWORD attributes,
                                 FILETIME time, std::uint32_t size) {
    auto result = std::make_unique<SearchResult>();
    result->folder = folders_.KeepOnce(folder);
    result->name = names_.Keep(name);
    result->attributes = attributes;
    result->time = time;
    result->size = size;
    result->next = std::move(head_);
    if (result->next)
        result->next->previous = result.get();
    head_ = std::move(result);
    return head_.get();
}

SearchResult* SearchResults::Remove(SearchResult* result) {
    std::unique_ptr<SearchResult>& owner = result->previous ? result->previous->next : head_;
    const std::unique_ptr<SearchResult> removed = std::move(owner);
    owner = std::move(removed->next);
    if (owner)
        owner->previous = removed->previous;
    return owner.get();
}

SearchResult* SearchResults::Find(std::wstring_view folder, std::wstring_view name) const {
    for (SearchResult* result = First(); result; result = result->next.get()) {
        if (folder == result->folder && name == result->name)
            return result;
    }
    return nullptr;
}

void SearchResults::Clear() {
    // One at a time: letting the chain free itself would go as deep as it is long.
    while (head_)
        head_ = std::move(head_->next);
    folders_.Clear();
    names_.Clear();
}
