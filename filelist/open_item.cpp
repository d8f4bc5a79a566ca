#include "filelist/open_item.h"

#include "app/app_state.h"
#include "app/file_facts.h"
#include "app/outside_path.h"
#include "app/wait_cursor.h"
#include "filelist/shortcut_target.h"
#include "fileops/archives.h"

namespace {

struct Launch {
    Path program;
    Path parameters;
};

/// What opening the file starts: itself, or what the shortcut leads to. False when that is not on the device.
bool ReadLaunch(const Path& path, Launch& launch) {
    launch.program = path;
    wchar_t text[pathCapacity] = {};
    if (!EqualNoCase(ExtensionOf(path.View()), L".LNK") ||
        !ce::SHGetShortcutTarget(path.Text(), text, static_cast<int>(pathCapacity)))
        return true;
    const ShortcutTarget target = SplitShortcutTarget(text);
    return TakeOutsideProgram(target.program, launch.program) && launch.parameters.Assign(target.parameters);
}

bool LeadsToFolder(const Launch& launch) {
    const WaitCursor wait;
    return IsExistingFolder(launch.program.Text());
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
