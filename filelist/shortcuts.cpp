// Making shortcut files.

#include "app/app_state.h"
#include "common/wait_cursor.h"
#include "filelist/file_list.h"
#include "filelist/shortcut_names.h"

void FileList::MakeShortcut(std::wstring_view destination, std::wstring_view folder, std::wstring_view name) {
    Path target;
    if (!target.AssignChild(folder, name))
        return;
    const ShortcutNaming naming{options.noShortcutMention == 0,
                                options.noExtension == 0 && noExtensionInShortcuts == 0};
    const std::wstring_view base = ShortcutBase(name, naming);
    const ShortcutText text = QuotedTarget(target);
    Path shortcut;
    appState.changeWatcher.PauseWatcher();
    for (int number = 1; number <= lastShortcutNumber; ++number) {
        if (AssignShortcutPath(shortcut, destination, base, naming, number) &&
            ce::SHCreateShortcut(shortcut.Text(), text.data()))
            break;
    }
    appState.changeWatcher.ResumeWatcher();
}

void FileList::ShortcutsHere() {
    const WaitCursor wait;
    const Path destination = currentFolder_;
    for (const Path& target : SelectedPaths())
        MakeShortcut(destination.View(), ParentOf(target.View()), LeafOf(target.View()));
    ShowAfterWork(destination, destination.View(), treeSelectOnly);
}
