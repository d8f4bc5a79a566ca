#include "fileops/properties.h"

#include <memory>
#include <string_view>

#include "app/app_state.h"
#include "common/name_rules.h"
#include "common/system_folder.h"
#include "common/text_format.h"
#include "fileops/contents_page.h"
#include "fileops/properties_page.h"
#include "fileops/properties_rules.h"
#include "fileops/shortcut_change.h"

namespace {

constexpr wchar_t cannotRename[] = L"This file cannot be renamed.";

void Report(const wchar_t* text) {
    MessageBoxW(appState.mainWindow, text, L"", MB_ICONHAND);
}

bool ChangeTarget(const PropertiesRequest& request, const Path& path) {
    const std::wstring_view target = request.newTarget.data();
    if (target == request.initialTarget.data())
        return false;
    if (target.empty())
        return Report(L"No Link-Target."), false;
    if (!ChangeShortcutTarget(path, request.newTarget.data()))
        return Report(L"This link target cannot be changed."), false;
    appState.fileList.RefreshIconFor(path.View());
    return true;
}

bool ChangeAttributes(const PropertiesRequest& request, const Path& path) {
    if (request.newAttributes == request.initialAttributes)
        return false;
    if (!ce::SetFileAttributesW(path.Text(), request.newAttributes))
        return Report(L"These attributes cannot be changed."), false;
    return true;
}

bool MoveToName(const PropertiesRequest& request, const Path& path, const wchar_t* name) {
    Path newPath;
    // A backslash would put the entry somewhere else.
    return std::wstring_view(name).find_first_of(L"\\/") == std::wstring_view::npos &&
           newPath.AssignChild(request.entry.folder.data(), name) &&
           ce::MoveFileW(path.Text(), newPath.Text());
}

bool ChangeName(const PropertiesRequest& request, const Path& path, const PathText& name) {
    if (std::wstring_view(name.data()) == request.entry.name.data())
        return false;
    if (request.entry.kind == ItemKind::Folder &&
        SystemFolder(appState.settings.windowsPath.data())
            .KeepsItsName(request.entry.folder.data(), request.entry.name.data(), name.data()))
        return Report(systemFolderMessage), false;
    if (!MoveToName(request, path, name.data()))
        return Report(cannotRename), false;
    return true;
}

/// Each change goes ahead whatever became of the ones before it.
PropertiesOutcome ApplyChanges(const PropertiesRequest& request) {
    PropertiesOutcome outcome;
    outcome.name = request.entry.name;
    Path path;
    if (!path.AssignChild(request.entry.folder.data(), request.entry.name.data()))
        return outcome;

    PathText name = request.newName;
    const bool named = name[0] != L'\0';
    if (!named)
        Report(cannotRename);
    // The extension comes on top even where the field showed it: it has always doubled so.
    if (appState.fileList.options.noExtension && request.entry.kind == ItemKind::File)
        AppendExtension(name, request.entry.name.data());
    name[StoredName(name.data()).size()] = L'\0';

    const bool targetChanged = ChangeTarget(request, path);
    const bool attributesChanged = ChangeAttributes(request, path);
    const bool renamed = named && ChangeName(request, path, name);
    if (renamed)
        outcome.name = name;
    outcome.changed = targetChanged || attributesChanged || renamed;
    return outcome;
}

} // namespace

PropertiesOutcome ShowProperties(std::span<const SelectionEntry> entries) {
    if (entries.size() > 1)
        ContentsPage(entries, L"").Run(appState.mainWindow);
    if (entries.size() != 1)
        return {};
    // Too large for the phone's stack.
    const std::unique_ptr<PropertiesRequest> request(new PropertiesRequest{entries.front()});
    FormatText(request->title, L"Properties of %s", request->entry.name.data());
    PropertiesPage(*request).Run(appState.mainWindow);

    appState.changeWatcher.PauseWatcher();
    const PropertiesOutcome outcome = ApplyChanges(*request);
    appState.changeWatcher.ResumeWatcher();
    return outcome;
}
