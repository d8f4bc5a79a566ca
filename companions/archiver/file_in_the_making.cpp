#include "companions/archiver/file_in_the_making.h"

#include "companions/archiver/failure.h"

namespace archiver {

FileInTheMaking::FileInTheMaking(std::wstring place)
    : place_(std::move(place)), path_(PlaceInTheMaking(ParentOf(place_))),
      file_(File::TryToCreate(path_, place_)) {
    if (!file_)
        throw Failure(L"'" + DisplayPath(path_) + L"' is there already");
}

FileInTheMaking::~FileInTheMaking() {
    if (!file_)
        return;
    file_.reset();
    DeleteFileW(path_.c_str());
}

bool FileInTheMaking::TakePlace(bool replace) {
    const DWORD there = replace ? AttributesOf(place_) : INVALID_FILE_ATTRIBUTES;
    const bool isGuarded = there != INVALID_FILE_ATTRIBUTES && (there & FILE_ATTRIBUTE_READONLY) != 0;
    if (isGuarded)
        SetFileAttributesW(place_.c_str(), FILE_ATTRIBUTE_NORMAL);
    try {
        if (!file_->Rename(place_, replace))
            return false;
    } catch (const Failure&) {
        if (isGuarded)
            SetFileAttributesW(place_.c_str(), there);
        throw;
    }
    file_.reset();
    return true;
}

} // namespace archiver
