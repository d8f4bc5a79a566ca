#include "companions/archiver/sources.h"

#include <algorithm>

#include "companions/archiver/failure.h"
#include "companions/archiver/member_names.h"
#include "platform/entry_names.h"

namespace archiver {

namespace {

constexpr std::wstring_view wholeFolder = L"\\*";

constexpr wchar_t nameReason[] = L"the device cannot open files by such names";
constexpr wchar_t specialReason[] = L"pipes and devices are not packed";

/// Whether the host has a pipe or a device there: to open one may wait forever.
bool IsSpecial(const std::wstring& path) {
    return AttributesOf(path) == INVALID_FILE_ATTRIBUTES && GetLastError() == ERROR_INVALID_PARAMETER;
}

/// A link that lies directly on a volume is a storage card.
bool IsStorageCard(const std::wstring& path) {
    return ParentOf(path).ends_with(L':');
}

/// Where a folder or file really is; nothing for a link that leads nowhere.
std::optional<std::wstring> RealPlaceOf(const std::wstring& path) {
    try {
        return File::OpenToKnow(path).FinalPath();
    } catch (const Failure&) {
        const DWORD attributes = AttributesOf(path);
        if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
            throw;
        return std::nullopt;
    }
}

class Collector {
  public:
    Collector(std::wstring base, Attendant& attendant, LeftOut& leftOut)
        : base_(std::move(base)), attendant_(attendant), leftOut_(leftOut) {}

    void Add(const std::wstring& path);
    Sources Take() { return std::move(found_); }

  private:
    bool MayGoIn(const Source& source);
    void Enter(Source& folder);
    void List(const Source& folder, const std::shared_ptr<const std::wstring>& place);

    std::wstring base_;
    Attendant& attendant_;
    LeftOut& leftOut_;
    Sources found_;
    std::vector<Source> pending_; // the last one comes next: folders may lie deeper than the stack reaches
};

void Collector::Add(const std::wstring& path) {
    if (IsSpecial(path)) {
        leftOut_.Add(NameInArchive(path, base_), specialReason);
        return;
    }
    const DWORD attributes = AttributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        FailBySystem(L"'" + DisplayPath(path) + L"' cannot be opened");
    const File entry = File::OpenToKnow(path);
    const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    pending_.push_back(
        {path, NameInArchive(path, base_), isFolder, entry.WriteTime(),
         std::make_shared<const std::wstring>(File::OpenToKnow(std::wstring(ParentOf(path))).FinalPath())});
    if (!isFolder) {
        ++found_.files;
        found_.bytes += entry.Size();
    }
    while (!pending_.empty()) {
        GoOn(attendant_);
        Source next = std::move(pending_.back());
        pending_.pop_back();
        if (!MayGoIn(next))
            continue;
        if (next.isFolder)
            Enter(next);
        else
            found_.entries.push_back(std::move(next));
    }
}

/// What could not be extracted again here is not packed.
bool Collector::MayGoIn(const Source& source) {
    if (source.name.empty()) // the base itself
        return true;
    std::wstring reason = JudgeName(source.name).reason;
    if (reason.empty() && !EncodeName(source.name, CP_UTF8))
        reason = L"the name holds a character that file names cannot have";
    if (reason.empty() && !DeviceCanName(source.path))
        reason = L"the path is longer than the device can have";
    if (!reason.empty())
        leftOut_.Add(source.name, reason);
    return reason.empty();
}

void Collector::Enter(Source& folder) {
    const std::optional<std::wstring> place = RealPlaceOf(folder.path);
    const bool mayLeadAway = folder.path.ends_with(L':') || IsStorageCard(folder.path);
    if (!place || (!mayLeadAway && IsElsewhere(*place, *folder.folderPlace, folder.path))) {
        leftOut_.Add(folder.name, linkReason);
        return;
    }
    attendant_.ShowName(LeafOf(folder.path));
    const Source copy = folder;
    if (!folder.name.empty())
        found_.entries.push_back(std::move(folder));
    List(copy, std::make_shared<const std::wstring>(*place));
}

void Collector::List(const Source& folder, const std::shared_ptr<const std::wstring>& place) {
    WIN32_FIND_DATAW entry;
    const HANDLE find = FindFirstFileExW((folder.path + L"\\*").c_str(), FindExInfoBasic, &entry,
                                         FindExSearchNameMatch, nullptr, 0);
    if (find == INVALID_HANDLE_VALUE) {
        if (GetLastError() == ERROR_FILE_NOT_FOUND)
            return;
        FailBySystem(L"'" + DisplayPath(folder.path) + L"' cannot be listed");
    }
    const std::size_t first = pending_.size();
    do {
        const std::wstring_view name = entry.cFileName;
        if (name == L"." || name == L"..")
            continue;
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!LeadsToEntry(name)) {
            leftOut_.Add(std::wstring(name), nameReason);
            continue;
        }
        std::wstring path = folder.path;
        path.append(1, L'\\').append(name);
        std::wstring inArchive = NameInArchive(path, base_);
        if (!isFolder && (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
            leftOut_.Add(inArchive, linkReason);
            continue;
        }
        if (IsSpecial(path)) {
            leftOut_.Add(inArchive, specialReason);
            continue;
        }
        pending_.push_back({std::move(path), std::move(inArchive), isFolder, entry.ftLastWriteTime, place});
        if (isFolder)
            continue;
        ++found_.files;
        found_.bytes += static_cast<std::uint64_t>(entry.nFileSizeHigh) << 32 | entry.nFileSizeLow;
    } while (FindNextFileW(find, &entry));
    const DWORD end = GetLastError();
    FindClose(find);
    if (end != ERROR_NO_MORE_FILES) {
        SetLastError(end);
        FailBySystem(L"'" + DisplayPath(folder.path) + L"' cannot be listed");
    }
    std::sort(pending_.begin() + static_cast<std::ptrdiff_t>(first), pending_.end(),
              [](const Source& a, const Source& b) { return a.path > b.path; });
}

} // namespace

bool IsElsewhere(std::wstring_view place, std::wstring_view folderPlace, std::wstring_view path) {
    return !place.empty() && !folderPlace.empty() &&
           !SameName(place, std::wstring(folderPlace) + L'\\' + std::wstring(LeafOf(path)));
}

std::wstring NameInArchive(const std::wstring& path, const std::wstring& base) {
    const std::size_t length = base.size();
    const bool below = path.size() > length && path[length] == L'\\' &&
                       SameName(std::wstring_view(path).substr(0, length), base);
    std::wstring name;
    if (below)
        name = path.substr(length + 1);
    else if (const std::size_t drive = path.find(L":\\"); drive != std::wstring::npos)
        name = path.substr(drive + 2);
    else
        name = LeafOf(path);
    std::replace(name.begin(), name.end(), L'\\', L'/');
    return name;
}

Sources CollectSources(const CommandLine& command, Attendant& attendant, LeftOut& leftOut) {
    Collector collector(FullPath(command.folder), attendant, leftOut);
    for (std::wstring_view asked : command.files) {
        if (asked.ends_with(wholeFolder))
            asked.remove_suffix(wholeFolder.size());
        collector.Add(FullPath(asked.empty() ? L"\\" : asked));
    }
    return collector.Take();
}

} // namespace archiver
