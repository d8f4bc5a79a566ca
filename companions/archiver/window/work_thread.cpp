#include "companions/archiver/window/work_thread.h"

#include <algorithm>

namespace archiver {

namespace {

class Locked {
  public:
    explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK& lock_;
};

} // namespace

bool WorkThread::Start() {
    asked_.Reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    answered_.Reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    if (asked_ && answered_)
        thread_.Reset(CreateThread(nullptr, 0, Procedure, this, 0, nullptr));
    return static_cast<bool>(thread_);
}

DWORD WINAPI WorkThread::Procedure(void* self) {
    auto* thread = static_cast<WorkThread*>(self);
    thread->work_(thread->context_, *thread);
    return 0;
}

void WorkThread::Answer(ReplaceAnswer answer) {
    answer_ = answer;
    question_ = nullptr;
    SetEvent(answered_.Get());
}

Progress WorkThread::Look() {
    const Locked locked(lock_);
    return progress_;
}

void WorkThread::SetTotals(std::uint64_t files, std::uint64_t bytes) {
    const Locked locked(lock_);
    progress_.files = files;
    progress_.bytes = bytes;
}

void WorkThread::ShowName(std::wstring_view name) {
    const Locked locked(lock_);
    const std::size_t length = std::min(name.size(), progress_.name.size() - 1);
    std::copy_n(name.data(), length, progress_.name.data());
    progress_.name[length] = L'\0';
}

void WorkThread::AddBytes(std::uint64_t bytes) {
    const Locked locked(lock_);
    progress_.bytesDone += bytes;
}

void WorkThread::AddFile() {
    const Locked locked(lock_);
    ++progress_.filesDone;
}

ReplaceAnswer WorkThread::AskReplace(const ReplaceQuestion& question) {
    question_ = &question;
    SetEvent(asked_.Get());
    WaitForSingleObject(answered_.Get(), INFINITE);
    return answer_;
}

} // namespace archiver
