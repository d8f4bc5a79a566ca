#include "platform/desktop/link_scan.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/desktop/host_process.h"
#include "platform/desktop/rooted_path.h"
#include "platform/handles.h"

namespace {

/// Writes "none" into the file $0 when there is no link right in the folder $1 nor below the others, and
/// "some" when there is one or when something could not be looked at. What the job has deleted meanwhile does
/// not count.
constexpr wchar_t script[] = LR"(sh -c "folder=$1; shift; export LC_ALL=C
{
    find \"$folder/.\" -mindepth 1 -maxdepth 1 -type l -printf 'a link\n' -quit
    test $# = 0 || find \"$@\" -type l -printf 'a link\n' -quit
} 2>&1 | grep -qv ': No such file or directory$'
case $? in 1) answer=none ;; *) answer=some ;; esac
test -e \"$0\" && printf $answer >\"$0\"")";

/// How far a file's time may lie behind the clock that the start is read from.
constexpr ULONGLONG clockStep = 100 * 10'000; // 100 ms

/// Characters for paths in a command line of the host's; the trees behind them are not looked through.
constexpr std::size_t commandRoom = 30'000;

ULONGLONG Ticks(const FILETIME& time) {
    return (static_cast<ULONGLONG>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

bool IsAtOrBelow(std::wstring_view path, std::wstring_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == L'\\');
}

std::wstring_view TextOf(const std::vector<wchar_t>& terminated) {
    return {terminated.data(), terminated.size() - 1};
}

} // namespace

LinkScan::LinkScan(const wchar_t* folder) {
    AddTree(folder);
}

LinkScan::~LinkScan() {
    if (!answerFile_.empty())
        ::DeleteFileW(answerFile_.data());
}

void LinkScan::AddTree(const wchar_t* path) {
    const std::wstring_view text(path);
    paths_.emplace_back(text.begin(), text.end()).push_back(L'\0');
}

void LinkScan::Begin() {
    std::array<wchar_t, MAX_PATH> folder{}, file{};
    if (!HasHostPrograms() || GetTempPathW(MAX_PATH, folder.data()) == 0 ||
        GetTempFileNameW(folder.data(), L"lnk", 0, file.data()) == 0)
        return;
    answerFile_.assign(file.begin(), file.end());
    std::vector<std::vector<wchar_t>> hostPaths{HostPath(file.data())};
    std::size_t length = hostPaths.front().size();
    std::size_t count = 0;
    for (; count < paths_.size() && length < commandRoom; ++count)
        length += hostPaths.emplace_back(HostPath(paths_[count].data())).size() + 3; // quotes and a blank
    paths_.resize(count);
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    start_ = Ticks(now);
    if (!StartOnHost(L"\\\\?\\unix\\bin\\sh", script, hostPaths))
        paths_.clear();
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
    Follow(FolderPart(path));
    return HasAnswer() && foundNone_ && !levels_.empty() && levels_.back().isUnchanged;
}

/// Brings the levels to `folder`, and judges those that are new. The folders on the way down are judged with
/// it, for they will have changed when the job comes back to them.
void LinkScan::Follow(std::wstring_view folder) {
    if (folder == std::wstring_view(folder_.data(), folder_.size()))
        return;
    while (!levels_.empty() && !IsAtOrBelow(folder, {folder_.data(), levels_.back().length}))
        levels_.pop_back();
    folder_.assign(folder.begin(), folder.end());
    for (std::size_t length = levels_.empty() ? 0 : levels_.back().length; length < folder.size();) {
        length = std::min(folder.find(L'\\', length + 1), folder.size());
        levels_.push_back({length, IsUnchanged(folder.substr(0, length))});
    }
}

bool LinkScan::IsScanned(std::wstring_view folder) const {
    if (paths_.empty())
        return false;
    return folder == TextOf(paths_.front()) ||
           std::any_of(paths_.begin() + 1, paths_.end(),
                       [&](const std::vector<wchar_t>& tree) { return IsAtOrBelow(folder, TextOf(tree)); });
}

/// Whether the folder is as the host has seen it or before.
bool LinkScan::IsUnchanged(std::wstring_view folder) const {
    if (!IsScanned(folder))
        return false;
    std::vector<wchar_t> path(folder.begin(), folder.end());
    path.push_back(L'\0');
    WIN32_FILE_ATTRIBUTE_DATA data{};
    return ::GetFileAttributesExW(path.data(), GetFileExInfoStandard, &data) &&
           Ticks(data.ftLastWriteTime) + clockStep < start_;
}
