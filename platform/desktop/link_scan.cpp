#include "platform/desktop/link_scan.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

#include <winternl.h>

#include "platform/desktop/host_process.h"
#include "platform/desktop/rooted_path.h"
#include "platform/handles.h"

// One of the calls that the host's headers leave out.
extern "C" NTSTATUS NTAPI NtQueryFullAttributesFile(OBJECT_ATTRIBUTES* file,
                                                    FILE_NETWORK_OPEN_INFORMATION* info);

namespace {

/// What stands for the folder in the script when there is none to look at.
constexpr wchar_t noFolder[] = L"-";

/// Writes "none" into the file $0 when there is no link right in the folder $1 nor below the others, and
/// "some" when there is one or when something could not be looked at. What is not there any more has been
/// deleted or moved meanwhile, and what takes its place later is not what it was.
constexpr wchar_t script[] = LR"(sh -c "folder=$1; shift; export LC_ALL=C
{
    test \"$folder\" = - || find \"$folder/.\" -mindepth 1 -maxdepth 1 -type l -printf 'a link\n' -quit ||
        test $? = 1 || echo no find
    test $# = 0 || find \"$@\" -type l -printf 'a link\n' -quit || test $? = 1 || echo no find
} 2>&1 | grep -qv ': No such file or directory$'
case $? in 1) answer=none ;; *) answer=some ;; esac
test -e \"$0\" && printf $answer >\"$0\"")";

/// How far a file's time may lie behind the clock that the start is read from.
constexpr LONGLONG clockStep = 100 * 10'000; // 100 ms

constexpr LONGLONG never = std::numeric_limits<LONGLONG>::max() - clockStep;

/// Characters for paths in a command line of the host's; the trees behind them are not looked through.
constexpr std::size_t commandRoom = 30'000;

/// When anything about the folder was last changed, its name, place and times included. Later than any time
/// when that cannot be told. Asked by name: to open a folder would cost as much as to delete a file.
LONGLONG TimeOfChange(const wchar_t* folder) {
    UNICODE_STRING name{};
    if (!RtlDosPathNameToNtPathName_U(folder, &name, nullptr, nullptr))
        return never;
    OBJECT_ATTRIBUTES object{};
    InitializeObjectAttributes(&object, &name, OBJ_CASE_INSENSITIVE, nullptr, nullptr);
    FILE_NETWORK_OPEN_INFORMATION info{};
    const NTSTATUS status = NtQueryFullAttributesFile(&object, &info);
    RtlFreeUnicodeString(&name);
    return NT_SUCCESS(status) ? info.ChangeTime.QuadPart : never;
}

std::vector<wchar_t> Terminated(std::wstring_view text) {
    std::vector<wchar_t> copy(text.begin(), text.end());
    copy.push_back(L'\0');
    return copy;
}

bool IsAtOrBelow(std::wstring_view path, std::wstring_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == L'\\');
}

} // namespace

LinkScan::LinkScan(const wchar_t* folder) : folder_{Terminated(folder), {}} {}

LinkScan::~LinkScan() {
    if (!answerFile_.empty())
        ::DeleteFileW(answerFile_.data());
}

void LinkScan::AddTree(const wchar_t* path) {
    trees_.push_back({Terminated(path), {}});
}

std::optional<LinkScan::Identity> LinkScan::IdentityOf(const wchar_t* folder) {
    const FileHandle opened(CreateFileW(folder, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION info{};
    if (!opened || !GetFileInformationByHandle(opened.Get(), &info))
        return std::nullopt;
    return Identity{info.dwVolumeSerialNumber,
                    static_cast<ULONGLONG>(info.nFileIndexHigh) << 32 | info.nFileIndexLow};
}

void LinkScan::Begin() {
    std::array<wchar_t, MAX_PATH> temporary{}, file{};
    if (!HasHostPrograms() || GetTempPathW(MAX_PATH, temporary.data()) == 0 ||
        GetTempFileNameW(temporary.data(), L"lnk", 0, file.data()) == 0)
        return;
    std::vector<std::vector<wchar_t>> hostPaths{HostPath(file.data())};
    hostPaths.push_back(folder_.View().empty() ? Terminated(noFolder) : HostPath(folder_.path.data()));
    std::size_t length = hostPaths[0].size() + hostPaths[1].size();
    std::size_t count = 0;
    for (; count < trees_.size() && length < commandRoom; ++count)
        length +=
            hostPaths.emplace_back(HostPath(trees_[count].path.data())).size() + 3; // quotes and a blank
    trees_.resize(count);
    folder_.identity = IdentityOf(folder_.path.data());
    for (Place& tree : trees_)
        if (!folder_.identity || FolderPart(tree.View()) != folder_.View()) // what is in it is judged by it
            tree.identity = IdentityOf(tree.path.data());
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    start_ = static_cast<LONGLONG>((static_cast<ULONGLONG>(now.dwHighDateTime) << 32) | now.dwLowDateTime);
    if (StartOnHost(L"\\\\?\\unix\\bin\\sh", script, hostPaths))
        answerFile_.assign(file.begin(), file.end());
    else
        ::DeleteFileW(file.data());
}

bool LinkScan::HasAnswer() {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (hasAnswer_ || answerFile_.empty() ||
        !::GetFileAttributesExW(answerFile_.data(), GetFileExInfoStandard, &data) || data.nFileSizeLow == 0)
        return hasAnswer_;
    std::array<char, 4> answer{};
    DWORD length = 0;
    const FileHandle file(CreateFileW(answerFile_.data(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    hasAnswer_ = file && ReadFile(file.Get(), answer.data(), answer.size(), &length, nullptr);
    foundNone_ = hasAnswer_ && std::string_view(answer.data(), length) == "none";
    return hasAnswer_;
}

bool LinkScan::IsNoLink(const wchar_t* path) {
    if (answerFile_.empty() || (hasAnswer_ && !foundNone_))
        return false;
    const std::wstring_view folder = FolderPart(path);
    if (folder != std::wstring_view(lastFolder_.data(), lastFolder_.size())) {
        if (!IsScanned(folder)) // the way through the trees goes on where it was
            return false;
        Follow(folder);
    }
    return HasAnswer() && foundNone_ && !levels_.empty() && levels_.back().isTrusted;
}

/// Brings the levels to `folder`, and judges those that are new. The folders on the way down are judged with
/// it, for they will have changed when the job comes back to them.
void LinkScan::Follow(std::wstring_view folder) {
    const std::size_t depth = levels_.size();
    while (!levels_.empty() && !IsAtOrBelow(folder, {lastFolder_.data(), levels_.back().length}))
        levels_.pop_back();
    if (!levels_.empty() && levels_.back().isTrusted) {
        Level& level = levels_.back();
        const LONGLONG change = LastLevelsChange();
        const bool comesBack = levels_.size() < depth; // the job has changed nothing in it since it left
        level.isTrusted = !comesBack || change == level.change;
        level.change = change;
    }
    lastFolder_.assign(folder.begin(), folder.end());
    for (std::size_t length = levels_.empty() ? 0 : levels_.back().length; length < folder.size();) {
        length = std::min(folder.find(L'\\', length + 1), folder.size());
        Push(folder.substr(0, length));
    }
}

/// Judges a folder in the last level. With one that is trusted no more goes all below it: it may have been
/// moved there. The uppermost of those that were looked at has to be the very same folder still, for nothing
/// is known of those above it.
void LinkScan::Push(std::wstring_view folder) {
    const bool isBelow = !levels_.empty() && IsScanned(folder.substr(0, levels_.back().length));
    const bool isDoubtful = isBelow ? !levels_.back().isTrusted : !IsWhatItWas(folder);
    levels_.push_back({folder.size(), false, 0});
    if (isDoubtful || !IsScanned(folder))
        return;
    levels_.back().change = LastLevelsChange();
    levels_.back().isTrusted = levels_.back().change + clockStep < start_;
}

bool LinkScan::IsWhatItWas(std::wstring_view folder) const {
    const auto isStill = [&](const Place& place) {
        return place.identity && place.View() == folder && place.identity == IdentityOf(place.path.data());
    };
    return isStill(folder_) || std::ranges::any_of(trees_, isStill);
}

LONGLONG LinkScan::LastLevelsChange() const {
    return TimeOfChange(Terminated({lastFolder_.data(), levels_.back().length}).data());
}

bool LinkScan::IsScanned(std::wstring_view folder) const {
    return (!folder.empty() && folder == folder_.View()) ||
           std::ranges::any_of(trees_, [&](const Place& tree) { return IsAtOrBelow(folder, tree.View()); });
}
