#include "filelist/open_item.h"

#include "app/app_state.h"
#include "common/file_facts.h"
#include "common/outside_path.h"
#include "common/wait_cursor.h"
#include "filelist/shortcut_target.h"
#include "fileops/archives.h"

namespace {

/// So many shortcuts to shortcuts are followed: they may lead round in a circle.
constexpr int mostShortcuts = 16;

struct Launch {
    Path program;
    Path parameters;
};

/// What opening the file starts: itself, or what the shortcut, or the last of shortcuts to shortcuts, leads
/// to. The first of them that says what its program is given says it for all. False when that is not on the
/// device.
bool ReadLaunch(const Path& path, Launch& launch) {
    launch.program = path;
    for (int followed = 0; followed <= mostShortcuts; ++followed) {
        wchar_t text[pathCapacity] = {};
        if (!EqualNoCase(ExtensionOf(launch.program.View()), L".LNK") ||
            !ce::SHGetShortcutTarget(launch.program.Text(), text, static_cast<int>(pathCapacity)))
            return true;
        const ShortcutTarget target = SplitShortcutTarget(text);
        if (launch.parameters.IsEmpty() && !launch.parameters.Assign(target.parameters))
            return false;
        if (!TakeOutsideProgram(target.program, launch.program))
            return false;
    }
    return false;
}

bool LeadsToFolder(const Launch& launch) {
    const WaitCursor wait;
    return launch.program.IsEmpty() || IsExistingFolder(launch.program.Text()); // the root is the empty path
}

bool IsArchiveOpenedHere(const FileList& list, const Path& path) {
    return list.options.openArchivesHere &&
           appState.archivers.IsArchiverAvailable(ArchiveTypeOf(path.View()));
}

} // namespace

void OpenItem(FileList& list, const Path& path) {
    Launch launch;
    if (!ReadLaunch(path, launch))
        return;
    if (LeadsToFolder(launch))
        return list.GoToFolder(launch.program.View(), treeRescan);
    if (IsArchiveOpenedHere(list, path))
        return ExtractSelection();

    SHELLEXECUTEINFOW request{};
    request.cbSize = sizeof(request);
    request.hwnd = appState.mainWindow;
    request.lpVerb = L"open";
    request.lpFile = launch.program.Text();
    request.lpParameters = launch.parameters.IsEmpty() ? nullptr : launch.parameters.Text();
    request.nShow = SW_SHOW;
    request.hInstApp = appState.instance;
    ce::ShellExecuteEx(&request);
}
