#pragma once
// The folders the list has shown, in the manner of a browser.

#include <memory>
#include <string_view>

#include "common/text.h"

class History {
  public:
    History() = default;
    History(const History&) = delete;
    History& operator=(const History&) = delete;
    ~History() { Clear(); }

    /// Takes a newly shown folder in behind the current one and drops what came after it. Showing the
    /// current folder again (compared exactly) changes nothing.
    void RecordHistory(std::wstring_view folder);

    /// Moves one step and returns the new current folder, or null when there is no step.
    const wchar_t* StepBack();
    const wchar_t* StepForward();

    /// The current folder, or null before the first.
    const wchar_t* Current() const { return current_ ? current_->folder.get() : nullptr; }
    bool HasBack() const { return current_ && current_->previous; }
    bool HasForward() const { return current_ && current_->next; }

  private:
    struct Node {
        OwnedText folder;
        std::unique_ptr<Node> next;
        Node* previous = nullptr;
    };

    static void FreeChain(std::unique_ptr<Node> node);
    void Clear();

    std::unique_ptr<Node> first_;
    Node* current_ = nullptr;
};
