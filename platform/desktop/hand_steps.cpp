#include <optional>
#include <string_view>
#include <vector>

#include "platform/ce_api.h"
#include "platform/desktop/hand.h"

namespace {

using hand::Kind;
using hand::MessageReader;
using hand::MessageWriter;

using WideText = std::vector<wchar_t>;

/// The host's text, terminated, with the phone's backslashes.
WideText FromHost(std::string_view text) {
    const int size = static_cast<int>(text.size());
    WideText wide(text.empty() ? 0
                               : static_cast<std::size_t>(
                                     MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)));
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    for (wchar_t& character : wide)
        character = character == L'/' ? L'\\' : character;
    wide.push_back(L'\0');
    return wide;
}

/// Where something is: "folder\name", or "folder\name\below".
WideText PathOf(const wchar_t* folder, const wchar_t* name, std::string_view below) {
    WideText path;
    const WideText inside = FromHost(below);
    for (const wchar_t* part : {folder, name, static_cast<const wchar_t*>(inside.data())}) {
        const std::wstring_view text = part;
        if (text.empty())
            continue;
        if (part != folder)
            path.push_back(L'\\');
        path.insert(path.end(), text.begin(), text.end());
    }
    path.push_back(L'\0');
    return path;
}

/// Whether the programs under Wine let the file be opened so. What the host says about it is its own affair.
bool IsShared(const WideText& path, DWORD access) {
    const FileHandle file(ce::CreateFileW(path.data(), access,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return file || GetLastError() != ERROR_SHARING_VIOLATION;
}

class HandSteps final : public ce::TreeSteps {
  public:
    void Hold(const wchar_t* folder, ce::TreeWatch& watch) override;
    ce::StepResult Remove(const ce::TreeEntry& entry, ce::TreeWatch& watch) override;
    ce::StepResult Transfer(const ce::TreeEntry& entry, const wchar_t* targetFolder,
                            const wchar_t* targetName, bool isMove, ce::TreeWatch& watch) override;

  private:
    /// What a request is about, for its questions.
    struct Subject {
        ce::TreeEntry entry;
        const wchar_t* targetFolder = nullptr;
        const wchar_t* targetName = nullptr;
    };

    bool Begin(MessageWriter& request);
    ce::StepResult Follow(const Subject& subject, ce::TreeWatch& watch);
    void OnProgress(MessageReader fields, ce::TreeWatch& watch);
    bool Answer(const HandMessage& question, const Subject& subject, ce::TreeWatch& watch);
    ce::StepResult ReadResult(MessageReader fields);

    Hand hand_;
    bool isBroken_ = false; // it has ended before its time: the folders it held are lost
    bool isCancelled_ = false;
};

/// Adds a folder to a request, and a name in it. False when the host knows none such.
bool AddText(MessageWriter& request, const std::optional<std::vector<char>>& bytes) {
    if (bytes)
        request.Text({bytes->data(), bytes->size()});
    return bytes.has_value();
}
bool AddPath(MessageWriter& request, const wchar_t* folder, const wchar_t* name) {
    return AddText(request, HandPath(folder)) && AddText(request, HandName(name));
}

bool HandSteps::Begin(MessageWriter& request) {
    if (!isBroken_ && !hand_.IsStarted())
        isBroken_ = !hand_.Start();
    isBroken_ = isBroken_ || !hand_.Send(request.Finish());
    isCancelled_ = false;
    return !isBroken_;
}

void HandSteps::Hold(const wchar_t* folder, ce::TreeWatch& watch) {
    MessageWriter request(Kind::Hold);
    if (AddText(request, HandPath(folder)) && Begin(request))
        Follow({}, watch);
}

ce::StepResult HandSteps::Remove(const ce::TreeEntry& entry, ce::TreeWatch& watch) {
    MessageWriter request(Kind::Remove);
    if (!AddPath(request, entry.folder, entry.name))
        return ce::StepResult::Failed;
    request.Number(entry.isFolder);
    return Begin(request) ? Follow({entry}, watch) : ce::StepResult::Failed;
}

ce::StepResult HandSteps::Transfer(const ce::TreeEntry& entry, const wchar_t* targetFolder,
                                   const wchar_t* targetName, bool isMove, ce::TreeWatch& watch) {
    MessageWriter request(Kind::Transfer);
    if (!AddPath(request, entry.folder, entry.name))
        return ce::StepResult::Failed;
    request.Number(entry.isFolder);
    if (!AddPath(request, targetFolder, targetName))
        return ce::StepResult::Failed;
    request.Number(isMove);
    return Begin(request) ? Follow({entry, targetFolder, targetName}, watch) : ce::StepResult::Failed;
}

/// Goes along with a request until its result.
ce::StepResult HandSteps::Follow(const Subject& subject, ce::TreeWatch& watch) {
    HandMessage message;
    while (hand_.Read(message)) {
        if (message.kind == Kind::Result)
            return ReadResult(message.Reader());
        if (message.kind == Kind::Progress)
            OnProgress(message.Reader(), watch);
        else if (!hand_.Send(MessageWriter(Kind::Answer).Number(Answer(message, subject, watch)).Finish()))
            break;
        if (!isCancelled_ && !watch.KeepGoing())
            isCancelled_ = hand_.Send(MessageWriter(Kind::Cancel).Finish());
    }
    isBroken_ = true;
    hand_.End();
    return ce::StepResult::Failed;
}

void HandSteps::OnProgress(MessageReader fields, ce::TreeWatch& watch) {
    const auto units = static_cast<int>(fields.Number());
    const WideText name = FromHost(fields.Text());
    watch.OnUnits(units);
    if (!isCancelled_ && name.size() > 1)
        watch.OnName(name.data());
}

bool HandSteps::Answer(const HandMessage& question, const Subject& subject, ce::TreeWatch& watch) {
    MessageReader fields = question.Reader();
    const std::string_view below = fields.Text();
    const WideText source = PathOf(subject.entry.folder, subject.entry.name, below);
    if (question.kind == Kind::AskSource)
        return IsShared(source, fields.Number() != 0 ? DELETE : GENERIC_READ);
    if (!subject.targetFolder)
        return false;
    const WideText target = PathOf(subject.targetFolder, subject.targetName, below);
    switch (question.kind) {
    case Kind::AskFile:
        return watch.MayReplaceFile(target.data(), source.data());
    case Kind::AskFolder:
        return watch.MayUseFolder(target.data());
    case Kind::AskTarget:
        return IsShared(target, DELETE);
    default:
        return false;
    }
}

ce::StepResult HandSteps::ReadResult(MessageReader fields) {
    const auto code = static_cast<hand::ResultCode>(fields.Number());
    SetLastError(ErrorOfHost(fields.Number()));
    const auto leftOut = static_cast<int>(fields.Number());
    AddLeftOut(leftOut, static_cast<int>(fields.Number()));
    switch (code) {
    case hand::ResultCode::Done:
        return fields.IsWhole() ? ce::StepResult::Done : ce::StepResult::Failed;
    case hand::ResultCode::Stopped:
        return ce::StepResult::Stopped;
    case hand::ResultCode::SourceStays:
        return ce::StepResult::SourceStays;
    default:
        return ce::StepResult::Failed;
    }
}

} // namespace

namespace ce {

std::unique_ptr<TreeSteps> BeginTreeSteps() {
    return HasHand() ? std::make_unique<HandSteps>() : nullptr;
}

} // namespace ce
