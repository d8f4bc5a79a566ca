#include "filelist/history.h"

#include <utility>

void History::RecordHistory(std::wstring_view folder) {
    if (current_ && folder == current_->folder.get())
        return;
    auto node = std::make_unique<Node>();
    node->folder = CopyText(folder);
    node->previous = current_;
    std::unique_ptr<Node>& place = current_ ? current_->next : first_;
    FreeChain(std::move(place));
    place = std::move(node);
    current_ = place.get();
}

const wchar_t* History::StepBack() {
    if (!HasBack())
        return nullptr;
    current_ = current_->previous;
    return Current();
}

const wchar_t* History::StepForward() {
    if (!HasForward())
        return nullptr;
    current_ = current_->next.get();
    return Current();
}

void History::FreeChain(std::unique_ptr<Node> node) {
    // One at a time: a long chain freeing itself would go as deep as it is long.
    while (node)
        node = std::move(node->next);
}

void History::Clear() {
    FreeChain(std::move(first_));
    current_ = nullptr;
}
