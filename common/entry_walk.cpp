#include "common/entry_walk.h"

EntryWalk::EntryWalk(std::wstring_view folder) {
    if (path_.Assign(folder))
        Enter();
}

void EntryWalk::Next() {
    if (!EnterEntry())
        Skip();
}

void EntryWalk::Skip() {
    while (HasEntry() && !ce::FindNextFileW(open_.back().find.Get(), &entry_))
        open_.pop_back();
    if (HasEntry())
        path_.Truncate(open_.back().pathLength);
}

/// Opens the folder that the path names; its first entry becomes the current one.
bool EntryWalk::Enter() {
    const std::size_t length = path_.Length();
    if (!path_.Append(L"\\*.*")) {
        metTooLong_ = true;
        return false;
    }
    FindHandle find(ce::FindFirstFileW(path_.Text(), &entry_));
    path_.Truncate(length);
    if (!find)
        return false;
    open_.push_back({std::move(find), length});
    return true;
}

bool EntryWalk::EnterEntry() {
    constexpr DWORD linkedFolder = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if ((entry_.dwFileAttributes & linkedFolder) != FILE_ATTRIBUTE_DIRECTORY)
        return false;
    const bool fits = path_.Append(L"\\") && path_.Append(entry_.cFileName);
    if (fits && Enter())
        return true;
    metTooLong_ = metTooLong_ || !fits;
    path_.Truncate(open_.back().pathLength);
    return false;
}
