#include "companions/archiver/target_folder.h"

#include "companions/archiver/failure.h"

namespace archiver {

namespace {

std::wstring_view WithoutExtension(std::wstring_view name) {
    return name.substr(0, name.rfind(L'.'));
}

std::wstring Quoted(std::wstring_view name) {
    return L"'" + std::wstring(name) + L"'";
}

} // namespace

TargetFolder::TargetFolder(std::wstring place, std::wstring_view archive)
    : place_(std::move(place)), archiveName_(LeafOf(archive)) {}

std::optional<std::uint64_t> TargetFolder::FreeSpace() const {
    std::wstring folder = place_;
    while (AttributesOf(folder) == INVALID_FILE_ATTRIBUTES && ParentOf(folder) != folder)
        folder = ParentOf(folder);
    return FreeSpaceAt(folder);
}

void TargetFolder::Make() {
    for (std::size_t cut = place_.find(L'\\', 4); cut != std::wstring::npos;) {
        cut = place_.find(L'\\', cut + 1);
        const std::wstring folder = place_.substr(0, cut);
        if (AttributesOf(folder) == INVALID_FILE_ATTRIBUTES && !MakeFolder(folder))
            FailBySystem(Quoted(DisplayPath(folder)) + L" cannot be made");
    }
    const DWORD attributes = AttributesOf(place_);
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        throw FinalFailure(Quoted(DisplayPath(place_)) + L" is not a folder");
    realPlace_ = File::OpenToKnow(place_).FinalPath();
    if (IsForArchiveAlone() && IsLink())
        throw FinalFailure(L"the folder " + Quoted(LeafOf(place_)) + L" is a link");
}

/// Only a volume's own links are none: they are its storage cards.
bool TargetFolder::IsForArchiveAlone() const {
    return !ParentOf(place_).ends_with(L':') && SameName(LeafOf(place_), WithoutExtension(archiveName_));
}

bool TargetFolder::IsLink() const {
    const std::wstring realParent = File::OpenToKnow(std::wstring(ParentOf(place_))).FinalPath();
    return !realPlace_.empty() && !realParent.empty() &&
           !SameName(realPlace_, realParent + L'\\' + std::wstring(LeafOf(place_)));
}

std::wstring TargetFolder::PlaceOf(std::wstring_view path) const {
    return place_ + L'\\' + std::wstring(path);
}

bool TargetFolder::LeadsElsewhere(const File& entry, std::wstring_view path) const {
    const std::wstring real = entry.FinalPath();
    return !real.empty() && !realPlace_.empty() && !SameName(real, realPlace_ + L'\\' + std::wstring(path));
}

void TargetFolder::MakeFolders(std::wstring_view path) {
    if (folders_.contains(std::wstring(path)))
        return;
    for (std::size_t cut = 0; cut != std::wstring_view::npos;) {
        cut = path.find(L'\\', cut + 1);
        const std::wstring folder(path.substr(0, cut));
        if (folders_.contains(folder))
            continue;
        const std::wstring place = PlaceOf(folder);
        const DWORD there = AttributesOf(place);
        if (there == INVALID_FILE_ATTRIBUTES) {
            if (!MakeFolder(place))
                FailBySystem(L"the folder " + Quoted(LeafOf(folder)) + L" cannot be made");
        } else if ((there & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            throw Failure(L"a file is where the folder " + Quoted(LeafOf(folder)) + L" should be");
        } else if (LeadsElsewhere(File::OpenToKnow(place), folder)) {
            throw Failure(L"the folder " + Quoted(LeafOf(folder)) + L" is a link");
        }
        folders_.emplace(folder, there == INVALID_FILE_ATTRIBUTES);
    }
}

bool TargetFolder::Claim(std::wstring_view path) {
    return claimed_.insert(Folded(path)).second;
}

bool TargetFolder::IsNewFolderOf(std::wstring_view path) const {
    const std::size_t cut = path.rfind(L'\\');
    const auto known =
        cut == std::wstring_view::npos ? folders_.end() : folders_.find(std::wstring(path.substr(0, cut)));
    return known != folders_.end() && known->second;
}

std::optional<ExistingFile> TargetFolder::Find(std::wstring_view path) const {
    const std::wstring place = PlaceOf(path);
    const DWORD attributes = AttributesOf(place);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return std::nullopt;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw Failure(L"a folder of that name is in the way");
    const File file = File::OpenToKnow(place);
    if (LeadsElsewhere(file, path))
        throw Failure(L"a link of that name is in the way");
    return ExistingFile{place, attributes, file.Size(), file.WriteTime()};
}

void TargetFolder::ExpectInside(const File& file, std::wstring_view path) const {
    const std::wstring real = file.FinalPath();
    const std::size_t cut = path.rfind(L'\\');
    const std::wstring folder =
        cut == std::wstring_view::npos ? realPlace_ : realPlace_ + L'\\' + std::wstring(path.substr(0, cut));
    if (!real.empty() && !realPlace_.empty() && !SameName(ParentOf(real), folder))
        throw Failure(L"the folder on the way to it has become a link");
}

} // namespace archiver
