#pragma once
// Does what the program asks for, one request after the other, until the program is gone.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "companions/hosthand/channel.h"
#include "companions/hosthand/job.h"
#include "companions/hosthand/journal.h"
#include "companions/hosthand/open_files.h"

class Server final : public Employer {
  public:
    /// `root` is the device's root. What the hand keeps for itself lies in `ownFolder`, in Wine's `prefix`.
    Server(Channel channel, Descriptor root, const std::string& ownFolder, const std::string& prefix,
           const std::string& token);
    ~Server();

    void Run();

  private:
    /// A folder that is held open for requests to come.
    struct Held {
        Descriptor folder;
        TargetNames names{false};
    };
    using Clock = std::chrono::steady_clock;

    bool KeepGoing() override { return !isCancelled_; }
    bool MayFinishFile() override;
    void Name(std::string_view name) override;
    void CompleteUnit() override { ++units_; }
    bool MayReplaceFile(const std::string& below) override;
    bool MayUseFolder(const std::string& below) override;
    bool IsOpenElsewhere(dev_t device, ino_t number) override { return openFiles_.Has(device, number); }
    bool MightBeOpenElsewhere(ino_t number) override { return openFiles_.Has(number); }
    bool MayTouchSource(const std::string& below, bool toRemove) override;
    bool MayTouchTarget(const std::string& below) override;
    void BeginTemporary(int folder, const std::string& name) override;
    void MadeTemporary() override;
    void EndTemporary() override;

    Outcome Handle(const Message& message);
    Outcome HoldFolder(hand::MessageReader fields);
    Outcome RemoveEntry(hand::MessageReader fields);
    Outcome TransferEntry(hand::MessageReader fields);
    Outcome RenamePath(hand::MessageReader fields);
    Outcome RemovePath(hand::MessageReader fields, bool isFolder);
    Outcome SetPathAttributes(hand::MessageReader fields);
    Held* FolderAt(std::string_view path);
    Descriptor ParentOf(std::string_view path, std::string& name);

    bool Ask(hand::Kind question, const std::string& below, bool toRemove = false);
    void BeginWork();
    void EndWork();
    void SendProgress();

    // The ticker: looks after the channel while the work goes on.
    void Tick();
    void TakeIncoming();
    void Cancel();
    void GiveUpWhenStuck();

    Channel channel_;
    Descriptor root_;
    Cards cards_;
    Journal journal_;
    OpenFiles openFiles_;
    std::map<std::string, Held, std::less<>> held_;

    std::mutex channelLock_; // one message at a time; the rest below is under it
    std::condition_variable ending_;
    bool isEnding_ = false;
    bool isAtWork_ = false;
    Clock::time_point cancelled_;
    std::atomic<bool> isCancelled_ = false;
    std::atomic<bool> mayFinish_ = true;

    std::atomic<std::uint32_t> units_ = 0; // done and not told
    std::mutex stateLock_;                 // the rest is under it
    std::string name_;
    bool isTemporaryMade_ = false;
    int temporaryFolder_ = -1;
    std::string temporaryName_;

    std::thread ticker_; // last: it uses all of the above
};
