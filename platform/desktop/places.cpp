#include "platform/ce_api.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <winioctl.h>

#include "platform/desktop/device_path.h"
#include "platform/desktop/host_process.h"
#include "platform/desktop/rooted_path.h"
#include "platform/handles.h"
#include "platform/path_spelling.h"

namespace {

using Text = std::vector<wchar_t>; // without a terminating zero

constexpr std::wstring_view hostPrefix = L"\\\\?\\";
constexpr std::wstring_view unixPrefix = L"\\\\?\\unix";

std::wstring_view View(const Text& text) {
    return {text.data(), text.size()};
}

Text Joined(std::wstring_view front, std::wstring_view back) {
    Text text(front.begin(), front.end());
    text.insert(text.end(), back.begin(), back.end());
    return text;
}

FileHandle OpenFolder(const wchar_t* path) {
    return FileHandle(::CreateFileW(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// The folder's path with every link followed: "\\?\E:\Folder". Empty when that cannot be told.
Text FinalPath(const wchar_t* folder) {
    const FileHandle opened = OpenFolder(folder);
    if (!opened)
        return {};
    Text text(GetFinalPathNameByHandleW(opened.Get(), nullptr, 0, 0) + 1);
    text.resize(GetFinalPathNameByHandleW(opened.Get(), text.data(), static_cast<DWORD>(text.size()), 0));
    return text;
}

// Wine tells a final path by the drive whose folder is the closest above it, so that what lies below the
// device's root has another drive than the root's neighbours. One is seen to be within the other only when
// each drive is put in the place of its own folder.

/// What Wine's manager of drives is asked with and answers.
struct UnixDrive {
    ULONG size;
    ULONG type;
    ULONG fileSystem;
    DWORD serial;
    ULONGLONG device;
    WCHAR letter;
    USHORT mountPoint; // where texts lie behind the record
    USHORT deviceName;
    USHORT label;
};
constexpr DWORD queryUnixDrive = CTL_CODE('m', 33, METHOD_BUFFERED, FILE_READ_ACCESS);

/// Where the link leads that makes a drive, as the host wrote it. Empty on Windows.
Text LinkOfDrive(wchar_t letter) {
    constexpr UINT hostCodePage = 65010;
    const FileHandle manager(::CreateFileW(L"\\\\.\\MountPointManager", GENERIC_READ,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                           nullptr));
    alignas(UnixDrive) std::array<char, 4096> answer{};
    UnixDrive question{};
    question.letter = letter;
    DWORD length = 0;
    if (!manager || !HasHostPrograms() ||
        !DeviceIoControl(manager.Get(), queryUnixDrive, &question, sizeof(question), answer.data(),
                         static_cast<DWORD>(answer.size() - 1), &length, nullptr))
        return {};
    const USHORT start = reinterpret_cast<const UnixDrive*>(answer.data())->mountPoint;
    if (start < sizeof(UnixDrive) || start >= length)
        return {};
    Text link(answer.size());
    const int size = MultiByteToWideChar(hostCodePage, 0, answer.data() + start, -1, link.data(),
                                         static_cast<int>(link.size()));
    link.resize(size > 0 ? static_cast<std::size_t>(size) - 1 : 0);
    return link;
}

std::optional<Text> PlaceOf(const wchar_t* folder);

/// The drive's folder on the host: "\home\me\phone", empty for the host's root.
std::optional<Text> FindDrive(wchar_t letter) {
    Text link = LinkOfDrive(letter);
    if (link.empty())
        return std::nullopt;
    if (link.front() != L'/') { // it is told from the folder that holds it
        const wchar_t drive[] = {letter, L':', L'\0'};
        const Text own = HostPath(drive);
        const std::wstring_view folder(own.data(), own.empty() ? 0 : own.size() - 1);
        link = Joined(folder.substr(0, folder.rfind(L'/') + 1), View(link));
    }
    Text spelt(link.size() + 1);
    spelt.resize(SpellPath(View(link), noDrive, spelt).value_or(0));
    if (spelt.empty())
        return Text();
    Text above = Joined(unixPrefix, FolderPart(View(spelt)));
    above.insert(above.end(), {L'\\', L'\0'});
    const std::optional<Text> place = PlaceOf(above.data());
    return place ? std::optional(Joined(View(*place), View(spelt).substr(FolderPart(View(spelt)).size())))
                 : std::nullopt;
}

/// The same, remembered: drives stay what they are.
const std::optional<Text>& PlaceOfDrive(wchar_t letter) {
    thread_local std::vector<std::pair<wchar_t, std::optional<Text>>> known;
    const auto found = std::ranges::find_if(known, [&](const auto& drive) { return drive.first == letter; });
    if (found != known.end())
        return found->second;
    std::optional<Text> place = FindDrive(letter);
    return known.emplace_back(letter, std::move(place)).second;
}

/// Where an existing folder is on the host; on Windows its path with all links followed.
std::optional<Text> PlaceOf(const wchar_t* folder) {
    Text path = FinalPath(folder);
    if (path.empty())
        return std::nullopt;
    while (!path.empty() && path.back() == L'\\')
        path.pop_back();
    std::wstring_view rest = View(path);
    if (rest.starts_with(unixPrefix))
        return Joined({}, rest.substr(unixPrefix.size()));
    if (!rest.starts_with(hostPrefix) || rest.size() < hostPrefix.size() + 2)
        return path;
    rest.remove_prefix(hostPrefix.size());
    if (rest[1] != L':')
        return path;
    const std::optional<Text>& drive = PlaceOfDrive(rest[0]);
    return drive ? Joined(View(*drive), rest.substr(2)) : path;
}

/// What tells folders of one volume apart that the host takes by more than one spelling.
std::optional<ULONGLONG> NumberOf(std::wstring_view place) {
    Text path = HasHostPrograms() ? Joined(unixPrefix, place) : Joined({}, place);
    path.push_back(L'\0');
    const FileHandle opened = OpenFolder(path.data());
    BY_HANDLE_FILE_INFORMATION info{};
    if (!opened || !GetFileInformationByHandle(opened.Get(), &info))
        return std::nullopt;
    return static_cast<ULONGLONG>(info.nFileIndexHigh) << 32 | info.nFileIndexLow;
}

/// One text, or two that differ in case alone, unless they are known to lead to two folders.
bool IsOnePlace(std::wstring_view a, std::wstring_view b) {
    if (a == b)
        return true;
    if (!SameText(a, b))
        return false;
    const std::optional<ULONGLONG> first = NumberOf(a);
    const std::optional<ULONGLONG> second = NumberOf(b);
    return !first || !second || first == second;
}

} // namespace

namespace ce {

RealPlace::RealPlace(const wchar_t* folder) {
    const DevicePath device(folder);
    const std::wstring_view path = device.Text();
    // What is not there, or not to be opened, is where its name says.
    for (std::wstring_view there = path; there.size() > hostPrefix.size(); there = FolderPart(there)) {
        const std::optional<Text> place = PlaceOf(Joined(there, {L"\\\0", 2}).data());
        if (!place)
            continue;
        isKnown_ = true;
        text_ = Joined(View(*place), path.substr(there.size()));
        break;
    }
    while (!text_.empty() && text_.back() == L'\\')
        text_.pop_back();
}

RealPlace RealPlace::Entry(const wchar_t* name) const {
    RealPlace entry(*this);
    entry.text_.push_back(L'\\');
    entry.text_.insert(entry.text_.end(), name, name + std::wcslen(name));
    return entry;
}

bool RealPlace::Is(const RealPlace& other) const {
    return isKnown_ && other.isKnown_ && IsOnePlace(View(text_), View(other.text_));
}

bool RealPlace::IsWithin(const RealPlace& other) const {
    const std::size_t length = other.text_.size();
    if (!isKnown_ || !other.isKnown_ || text_.size() < length)
        return false;
    return (text_.size() == length || text_[length] == L'\\') &&
           IsOnePlace(View(text_).substr(0, length), View(other.text_));
}

} // namespace ce
