#include "fileops/shortcut_change.h"

#include "common/text.h"
#include "platform/ce_api.h"

namespace {

/// Moves the shortcut out of the way, to a free name beside it.
bool MoveAside(const Path& shortcut, Path& aside) {
    constexpr int lastTry = 99;
    wchar_t name[8];
    for (int number = 1; number <= lastTry; ++number) {
        FormatText(name, L"~%d", number);
        if (aside.AssignChild(ParentOf(shortcut.View()), name) &&
            ce::GetFileAttributesW(aside.Text()) == INVALID_FILE_ATTRIBUTES)
            return ce::MoveFileW(shortcut.Text(), aside.Text()) != FALSE;
    }
    return false;
}

} // namespace

bool ChangeShortcutTarget(const Path& shortcut, const wchar_t* target) {
    const DWORD attributes = ce::GetFileAttributesW(shortcut.Text());
    ce::SetFileAttributesW(shortcut.Text(), FILE_ATTRIBUTE_NORMAL);
    Path aside;
    bool changed = false;
    if (MoveAside(shortcut, aside)) {
        changed = ce::SHCreateShortcut(shortcut.Text(), target) != FALSE;
        if (changed)
            ce::DeleteFileW(aside.Text());
        else
            ce::MoveFileW(aside.Text(), shortcut.Text());
    }
    ce::SetFileAttributesW(shortcut.Text(), attributes);
    return changed;
}
