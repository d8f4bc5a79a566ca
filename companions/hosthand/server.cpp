#include "companions/hosthand/server.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include "companions/hosthand/attributes.h"
#include "companions/hosthand/copying.h"
#include "companions/hosthand/names.h"
#include "companions/hosthand/removal.h"
#include "companions/hosthand/transfer.h"

namespace {

using hand::Kind;
using hand::MessageReader;
using hand::MessageWriter;

constexpr std::chrono::milliseconds tickEvery{50};
constexpr std::chrono::milliseconds patience{hand::patienceAfterCancel};
/// Behind that: work that has not come to an end of its own by then does not come back.
constexpr std::chrono::milliseconds stuckAfter{hand::patienceAfterCancel + 1000};

/// Whether the text can be the name of an entry.
bool IsName(std::string_view text) {
    return !text.empty() && text != "." && text != ".." && text.find('/') == std::string_view::npos &&
           text.find('\0') == std::string_view::npos;
}

/// What the other side cannot make out, it is not told. Its own texts it shows.
std::string ForProgram(const std::string& name) {
    return IsText(name) ? name : std::string("?");
}

} // namespace

Server::Server(Channel channel, Descriptor root, const std::string& ownFolder, const std::string& prefix,
               const std::string& token)
    : channel_(std::move(channel)), root_(std::move(root)), cards_(root_.Get()), journal_(ownFolder, token),
      openFiles_(prefix), ticker_([this] { Tick(); }) {}

Server::~Server() {
    {
        const std::lock_guard lock(channelLock_);
        isEnding_ = true;
    }
    ending_.notify_one();
    ticker_.join();
}

void Server::Run() {
    for (Message message; channel_.Read(message);) {
        if (message.kind == Kind::Cancel || message.kind == Kind::Answer)
            continue; // of a request that was over before it came
        isCancelled_ = false;
        mayFinish_ = true;
        BeginWork();
        const Outcome outcome = Handle(message);
        EndWork();
        const std::lock_guard lock(channelLock_);
        SendProgress();
        if (!channel_.Send(MessageWriter(Kind::Result)
                               .Number(static_cast<std::uint32_t>(outcome.code))
                               .Number(static_cast<std::uint32_t>(outcome.error))
                               .Number(outcome.leftOut)
                               .Number(outcome.atBothPlaces)
                               .Finish()))
            return;
    }
}

Outcome Server::Handle(const Message& message) {
    switch (message.kind) {
    case Kind::Hold:
        return HoldFolder(message.Reader());
    case Kind::Remove:
        return RemoveEntry(message.Reader());
    case Kind::Transfer:
        return TransferEntry(message.Reader());
    case Kind::Rename:
        return RenamePath(message.Reader());
    case Kind::RemoveFile:
        return RemovePath(message.Reader(), false);
    case Kind::RemoveFolder:
        return RemovePath(message.Reader(), true);
    case Kind::SetAttributes:
        return SetPathAttributes(message.Reader());
    default:
        return Failure(EPROTO);
    }
}

// --- Requests ---

Server::Held* Server::FolderAt(std::string_view path) {
    const auto known = held_.find(path);
    if (known != held_.end())
        return &known->second;
    Held held{OpenPath(root_.Get(), path)};
    return held.folder ? &held_.emplace(path, std::move(held)).first->second : nullptr;
}

Outcome Server::HoldFolder(MessageReader fields) {
    const std::string_view path = fields.Text();
    if (!fields.IsWhole())
        return Failure(EPROTO);
    return FolderAt(path) ? Outcome{} : Failure();
}

Outcome Server::RemoveEntry(MessageReader fields) {
    const std::string_view path = fields.Text(), name = fields.Text();
    const bool isFolder = fields.Number() != 0;
    if (!fields.IsWhole() || !IsName(name))
        return Failure(EPROTO);
    const Held* held = FolderAt(path);
    const std::string found = held ? FindName(held->folder.Get(), name) : std::string();
    return found.empty() ? Failure() : Remove({held->folder.Get(), found, isFolder, cards_}, *this);
}

Outcome Server::TransferEntry(MessageReader fields) {
    const std::string_view path = fields.Text(), name = fields.Text();
    const bool isFolder = fields.Number() != 0;
    const std::string_view targetPath = fields.Text(), targetName = fields.Text();
    const bool isMove = fields.Number() != 0;
    if (!fields.IsWhole() || !IsName(name) || !IsName(targetName))
        return Failure(EPROTO);
    const Held* source = FolderAt(path);
    Held* target = source ? FolderAt(targetPath) : nullptr;
    const std::string found = target ? FindName(source->folder.Get(), name) : std::string();
    if (found.empty())
        return Failure();
    return Transfer({source->folder.Get(), found, isFolder, cards_},
                    {target->folder.Get(), std::string(targetName), target->names}, isMove, *this);
}

/// Opens the folder that the last part of the path is in.
Descriptor Server::ParentOf(std::string_view path, std::string& name) {
    const std::size_t slash = path.rfind('/');
    const std::string_view last = slash == std::string_view::npos ? path : path.substr(slash + 1);
    if (!IsName(last)) {
        errno = EINVAL;
        return {};
    }
    name = last;
    return OpenPath(root_.Get(),
                    slash == std::string_view::npos ? std::string_view() : path.substr(0, slash));
}

Outcome Server::RenamePath(MessageReader fields) {
    const std::string_view from = fields.Text(), into = fields.Text();
    const bool replaces = fields.Number() != 0;
    std::string name, newName;
    if (!fields.IsWhole())
        return Failure(EPROTO);
    const Descriptor source = ParentOf(from, name);
    const Descriptor target = source ? ParentOf(into, newName) : Descriptor();
    const std::string found = target ? FindName(source.Get(), name) : std::string();
    if (found.empty())
        return Failure();
    const std::string occupied = FindName(target.Get(), newName);
    const auto here = StatusOf(source.Get(), found);
    const auto there = occupied.empty() ? std::nullopt : StatusOf(target.Get(), occupied);
    const bool isItself = here && there && IdentityOf(*here) == IdentityOf(*there) && occupied == found;
    if (!occupied.empty() && !isItself) {
        if (!replaces)
            return Failure(EEXIST);
        if (there && S_ISDIR(there->st_mode))
            return Failure(EISDIR);
        newName = occupied;
    } else if (replaces && occupied.empty()) {
        return Failure(ENOENT);
    }
    if (isItself && found == newName)
        return {};
    return Rename({source.Get(), found, target.Get(), newName, replaces && !isItself}) ? Outcome{}
                                                                                       : Failure();
}

Outcome Server::RemovePath(MessageReader fields, bool isFolder) {
    const std::string_view path = fields.Text();
    std::string name;
    if (!fields.IsWhole())
        return Failure(EPROTO);
    const Descriptor folder = ParentOf(path, name);
    const std::string found = folder ? FindName(folder.Get(), name) : std::string();
    if (found.empty())
        return Failure();
    const auto status = StatusOf(folder.Get(), found);
    if (!isFolder || !status || !S_ISLNK(status->st_mode))
        return unlinkat(folder.Get(), found.c_str(), isFolder ? AT_REMOVEDIR : 0) == 0 ? Outcome{}
                                                                                       : Failure();
    if (cards_.Has(folder.Get(), *status))
        return Failure(EACCES); // a card is taken out, not removed
    return RemoveFile(folder.Get(), found) ? Outcome{} : Failure();
}

Outcome Server::SetPathAttributes(MessageReader fields) {
    const std::string_view path = fields.Text();
    const std::uint32_t attributes = fields.Number();
    std::string name;
    if (!fields.IsWhole())
        return Failure(EPROTO);
    const Descriptor folder = ParentOf(path, name);
    const std::string found = folder ? FindName(folder.Get(), name) : std::string();
    return !found.empty() && SetAttributes(folder.Get(), found, attributes) ? Outcome{} : Failure();
}

// --- What the work asks and tells ---

bool Server::MayFinishFile() {
    if (!mayFinish_)
        return false;
    const std::lock_guard lock(channelLock_);
    return Clock::now() - cancelled_ < patience;
}

void Server::Name(std::string_view name) {
    const std::lock_guard lock(stateLock_);
    name_ = name;
}

bool Server::MayReplaceFile(const std::string& below) {
    return Ask(Kind::AskFile, below);
}

bool Server::MayUseFolder(const std::string& below) {
    return Ask(Kind::AskFolder, below);
}

bool Server::MayTouchSource(const std::string& below, bool toRemove) {
    return Ask(Kind::AskSource, below, toRemove);
}

bool Server::MayTouchTarget(const std::string& below) {
    return Ask(Kind::AskTarget, below);
}

/// What the program cannot be asked about by its name stays what it is.
bool Server::Ask(Kind question, const std::string& below, bool toRemove) {
    if (!CanBeTold(below))
        return false;
    EndWork();
    MessageWriter message(question);
    message.Text(below);
    if (question == Kind::AskSource)
        message.Number(toRemove);
    const std::vector<std::byte> bytes = message.Finish();
    bool answer = false;
    {
        const std::lock_guard lock(channelLock_);
        SendProgress();
        Message reply;
        bool isAnswered = bytes.empty() || !channel_.Send(bytes);
        while (!isAnswered) {
            if (!channel_.Read(reply)) {
                Cancel();
                mayFinish_ = false;
                break;
            }
            isAnswered = reply.kind == Kind::Answer;
            if (reply.kind == Kind::Cancel)
                Cancel();
            MessageReader fields = reply.Reader();
            answer = isAnswered && fields.Number() != 0 && fields.IsWhole();
        }
    }
    BeginWork();
    return answer;
}

void Server::BeginTemporary(int folder, const std::string& name) {
    journal_.Announce(folder, name);
    const std::lock_guard lock(stateLock_);
    temporaryFolder_ = folder;
    temporaryName_ = name;
}

void Server::MadeTemporary() {
    {
        const std::lock_guard lock(stateLock_);
        isTemporaryMade_ = true;
    }
    journal_.Note(temporaryFolder_, temporaryName_);
}

void Server::EndTemporary() {
    journal_.Clear();
    const std::lock_guard lock(stateLock_);
    isTemporaryMade_ = false;
}

// --- The channel meanwhile ---

void Server::BeginWork() {
    const std::lock_guard lock(channelLock_);
    isAtWork_ = true;
}

void Server::EndWork() {
    const std::lock_guard lock(channelLock_);
    isAtWork_ = false;
}

void Server::SendProgress() {
    MessageWriter message(Kind::Progress);
    message.Number(units_.exchange(0));
    const std::lock_guard lock(stateLock_);
    channel_.Send(message.Text(ForProgram(name_)).Finish());
}

void Server::Tick() {
    std::unique_lock lock(channelLock_);
    while (!ending_.wait_for(lock, tickEvery, [this] { return isEnding_; })) {
        if (!isAtWork_)
            continue;
        TakeIncoming();
        if (channel_.HasRoom())
            SendProgress();
        GiveUpWhenStuck();
    }
}

/// While the work goes on nothing comes but "Cancel", and the program's end.
void Server::TakeIncoming() {
    if (!channel_.HasIncoming() || (isCancelled_ && !mayFinish_))
        return;
    Message message;
    const bool isThere = channel_.Read(message);
    if (!isThere)
        mayFinish_ = false;
    if (!isThere || message.kind == Kind::Cancel)
        Cancel();
}

void Server::Cancel() {
    if (!isCancelled_)
        cancelled_ = Clock::now();
    isCancelled_ = true;
}

/// A host that does not answer for one of its disks: the work is given up, and with it the hand.
void Server::GiveUpWhenStuck() {
    if (!isCancelled_ || Clock::now() - cancelled_ < stuckAfter)
        return;
    std::thread([this] {
        const std::lock_guard lock(stateLock_);
        if (isTemporaryMade_)
            RemoveFile(temporaryFolder_, temporaryName_);
    }).detach();
    std::this_thread::sleep_for(tickEvery * 4);
    channel_.Send(MessageWriter(Kind::Result)
                      .Number(static_cast<std::uint32_t>(hand::ResultCode::Stopped))
                      .Number(0)
                      .Number(0)
                      .Number(0)
                      .Finish());
    _exit(0);
}
