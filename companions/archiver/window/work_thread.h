#pragma once
// The thread that does the work, and what it shares with the window.

#include <array>
#include <atomic>

#include "companions/archiver/attendant.h"
#include "platform/handles.h"

namespace archiver {

/// How far the work is.
struct Progress {
    std::uint64_t files = 0, filesDone = 0;
    std::uint64_t bytes = 0, bytesDone = 0;
    std::array<wchar_t, 260> name{};
};

class WorkThread : public Attendant {
  public:
    using Work = void (*)(void* context, Attendant& attendant);
    WorkThread(Work work, void* context) : work_(work), context_(context) {}

    // --- For the window's thread ---

    /// False when there is no thread to be had: nothing is done then.
    bool Start();
    /// Set when the work has come back.
    HANDLE Ended() const { return thread_.Get(); }
    /// Set when there is something to ask; the thread waits for the answer.
    HANDLE Asked() const { return asked_.Get(); }
    const ReplaceQuestion& Question() const { return *question_; }
    void Answer(ReplaceAnswer answer);
    void Cancel() { isCancelled_ = true; }
    Progress Look();

    // --- For the work ---

    void SetTotals(std::uint64_t files, std::uint64_t bytes) override;
    void ShowName(std::wstring_view name) override;
    void AddBytes(std::uint64_t bytes) override;
    void AddFile() override;
    bool IsCancelled() override { return isCancelled_; }
    ReplaceAnswer AskReplace(const ReplaceQuestion& question) override;

  private:
    static DWORD WINAPI Procedure(void* self);

    Work work_;
    void* context_;
    ObjectHandle asked_, answered_; // events that go back by themselves
    ObjectHandle thread_;
    std::atomic<bool> isCancelled_ = false;
    SRWLOCK lock_ = SRWLOCK_INIT; // of what follows
    Progress progress_;
    const ReplaceQuestion* question_ = nullptr; // while the thread waits
    ReplaceAnswer answer_ = ReplaceAnswer::No;
};

} // namespace archiver
