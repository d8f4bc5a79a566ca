#include "fileops/contents_count.h"

#include "common/device_info.h"

namespace {

bool IsFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsLink(const Path& path) {
    const DWORD attributes = ce::GetFileAttributesW(path.Text());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

} // namespace

bool PathOfEntry(const SelectionEntry& entry, Path& path) {
    if (EqualNoCase(entry.name.data(), DeviceDisplayName())) {
        path.Clear();
        return true;
    }
    return path.AssignChild(entry.folder.data(), entry.name.data());
}

bool ContentsCount::CountFor(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (CountNext()) {
        if (GetTickCount() - start >= milliseconds)
            return true;
    }
    return false;
}

ContentsTotals ContentsCount::Totals() const {
    ContentsTotals totals = totals_;
    if (entries_.size() == 1 && totals.folders > 0 && entries_.front().kind == ItemKind::Folder)
        --totals.folders;
    return totals;
}

/// Counts one entry. False when none is left.
bool ContentsCount::CountNext() {
    if (!walk_ || !walk_->HasEntry()) {
        if (next_ == entries_.size())
            return false;
        CountSelected(entries_[next_++]);
        return true;
    }
    const bool isFolder = IsFolder(walk_->Entry().dwFileAttributes);
    const bool isLink = (walk_->Entry().dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    Path path;
    if (!path.AssignChild(walk_->Folder(), walk_->Entry().cFileName))
        ++(isFolder ? totals_.folders : totals_.files);
    else if (isFolder)
        CountFolder(path, isLink);
    else
        CountFile(path);
    walk_->Next();
    return true;
}

void ContentsCount::CountSelected(const SelectionEntry& entry) {
    Path path;
    if (!PathOfEntry(entry, path))
        return;
    if (entry.kind != ItemKind::Folder)
        return CountFile(path);
    const bool isLink = IsLink(path);
    CountFolder(path, isLink);
    if (!isLink)
        walk_.emplace(path.View());
}

/// What a link leads to is not gone into.
void ContentsCount::CountFolder(const Path& path, bool isLink) {
    ++totals_.folders;
    Path pattern;
    if (!isLink && pattern.AssignPattern(path.View()))
        totals_.unlisted += ce::CountUnlisted(pattern.Text());
}

void ContentsCount::CountFile(const Path& path) {
    ++totals_.files;
    const FileHandle file(ce::CreateFileW(path.Text(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD size = file ? GetFileSize(file.Get(), nullptr) : INVALID_FILE_SIZE;
    if (size != INVALID_FILE_SIZE)
        totals_.bytes += size;
}
