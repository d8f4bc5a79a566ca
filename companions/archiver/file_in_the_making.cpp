#include "companions/archiver/file_in_the_making.h"

#include "companions/archiver/failure.h"

namespace archiver {

FileInTheMaking::FileInTheMaking(std::wstring place) : place_(std::move(place)) {
    // One may be left of an earlier call, where the system itself was ended in its middle.
    for (int number = 0; !file_; ++number) {
        path_ = std::wstring(ParentOf(place_)) + L"\\~arc" + std::to_wstring(number) + L".tmp";
        if (std::optional<File> file = File::TryToCreate(path_, place_))
            file_.emplace(std::move(*file));
    }
    vanishes_ = file_->VanishWhenClosed(true);
}

FileInTheMaking::~FileInTheMaking() {
    if (!file_)
        return;
    file_.reset();
    if (!vanishes_)
        DeleteFileW(path_.c_str());
}

bool FileInTheMaking::TakePlace(bool replace) {
    const DWORD there = replace ? AttributesOf(place_) : INVALID_FILE_ATTRIBUTES;
    const bool isGuarded = there != INVALID_FILE_ATTRIBUTES && (there & FILE_ATTRIBUTE_READONLY) != 0;
    if (isGuarded)
        SetFileAttributesW(place_.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (vanishes_)
        vanishes_ = !file_->VanishWhenClosed(false);
    try {
        if (!file_->Rename(place_, replace)) {
            vanishes_ = file_->VanishWhenClosed(true);
            return false;
        }
    } catch (const Failure&) {
        if (isGuarded)
            SetFileAttributesW(place_.c_str(), there);
        throw;
    }
    file_.reset();
    return true;
}

} // namespace archiver
