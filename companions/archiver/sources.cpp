#include "companions/archiver/sources.h"

#include <algorithm>
#include <iterator>

#include "companions/archiver/failure.h"

namespace archiver {

namespace {

constexpr std::wstring_view wholeFolder = L"\\*";

bool SameText(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}

/// Whether a folder's entry leads elsewhere. The host's links to files look like files: only where they
/// really are tells them.
bool IsLink(const std::wstring& folderPlace, const std::wstring& path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        return true;
    const std::wstring place = File::OpenToKnow(path).FinalPath();
    return !place.empty() && !folderPlace.empty() &&
           !SameText(place, folderPlace + L'\\' + std::wstring(LeafOf(path)));
}

class Collector {
  public:
    Collector(std::wstring base, const std::optional<FileIdentity>& leftOut)
        : base_(std::move(base)), leftOut_(leftOut) {}

    void Add(const std::wstring& path, DWORD attributes);
    Sources Take() { return std::move(found_); }

  private:
    void ListInto(const std::wstring& folder, std::vector<Source>& pending);

    std::wstring base_;
    std::optional<FileIdentity> leftOut_;
    Sources found_;
};

/// Works through folders with a list of its own: they may lie deeper than the stack reaches.
void Collector::Add(const std::wstring& path, DWORD attributes) {
    std::vector<Source> pending = {
        {path, NameInArchive(path, base_), (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0}};
    while (!pending.empty()) {
        const Source next = std::move(pending.back());
        pending.pop_back();
        if (!next.isFolder && leftOut_ && File::OpenToKnow(next.path).Identity() == *leftOut_)
            continue;
        if (!next.name.empty())
            found_.entries.push_back(next);
        if (next.isFolder)
            ListInto(next.path, pending);
    }
}

void Collector::ListInto(const std::wstring& folder, std::vector<Source>& pending) {
    const std::wstring folderPlace = File::OpenToKnow(folder).FinalPath();
    const std::wstring pattern = folder + L"\\*";
    WIN32_FIND_DATAW entry;
    const HANDLE find = FindFirstFileW(pattern.c_str(), &entry);
    if (find == INVALID_HANDLE_VALUE) {
        if (GetLastError() == ERROR_FILE_NOT_FOUND)
            return;
        FailBySystem(L"'" + DisplayPath(folder) + L"' cannot be listed");
    }
    std::vector<std::pair<std::wstring, DWORD>> entries;
    do
        entries.emplace_back(entry.cFileName, entry.dwFileAttributes);
    while (FindNextFileW(find, &entry));
    const DWORD end = GetLastError();
    FindClose(find);
    if (end != ERROR_NO_MORE_FILES) {
        SetLastError(end);
        FailBySystem(L"'" + DisplayPath(folder) + L"' cannot be listed");
    }

    // The last one pushed comes first.
    std::sort(entries.rbegin(), entries.rend());
    for (const auto& [name, attributes] : entries) {
        if (name == L"." || name == L"..")
            continue;
        std::wstring path = folder;
        path.append(1, L'\\').append(name);
        if (IsLink(folderPlace, path, attributes))
            ++found_.linksLeftOut;
        else
            pending.push_back(
                {path, NameInArchive(path, base_), (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    }
}

/// A link that lies directly on a volume is a storage card.
bool IsStorageCard(const std::wstring& path, DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && ParentOf(path).ends_with(L':');
}

} // namespace

std::wstring NameInArchive(const std::wstring& path, const std::wstring& base) {
    const std::size_t length = base.size();
    const bool below = path.size() > length && path[length] == L'\\' &&
                       SameText(std::wstring_view(path).substr(0, length), base);
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

Sources CollectSources(const CommandLine& command, const std::optional<FileIdentity>& leftOut) {
    Collector collector(FullPath(command.folder), leftOut);
    for (std::wstring_view asked : command.files) {
        if (asked.ends_with(wholeFolder))
            asked.remove_suffix(wholeFolder.size());
        const std::wstring path = FullPath(asked.empty() ? L"\\" : asked);
        const DWORD attributes = AttributesOf(path);
        if (attributes == INVALID_FILE_ATTRIBUTES)
            FailBySystem(L"'" + DisplayPath(path) + L"' cannot be opened");
        if (!path.ends_with(L':') && !IsStorageCard(path, attributes) &&
            IsLink(File::OpenToKnow(std::wstring(ParentOf(path))).FinalPath(), path, attributes))
            throw Failure(L"'" + DisplayPath(path) + L"' is a link, and links are not followed");
        collector.Add(path, attributes);
    }
    return collector.Take();
}

} // namespace archiver
