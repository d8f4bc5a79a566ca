#include "filelist/context_menu.h"

#include "app/menu_state.h"
#include "common/pointer.h"
#include "filelist/context_menu_rules.h"
#include "filelist/file_list.h"
#include "resources/resource.h"

namespace {

void Enable(HMENU menu, UINT command, bool enabled) {
    EnableMenuItem(menu, command, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void Prepare(HMENU popup, int number, const FileList& list) {
    ApplyMenuState(popup);
    if (number != POPUP_NOTHING)
        return;
    ApplyCheckMarks(popup);
    // Here it shows the folder itself.
    Enable(popup, IDM_MENU_PROPERTIES, !list.CurrentFolder().IsEmpty());
}

} // namespace

bool ShowContextMenu(const FileList& list, POINT point) {
    HWND view = list.Window();
    const std::optional<SelectionEntry> first = list.EntryAt(list.FirstSelected());
    ContextSelection selection;
    selection.count = list.SelectedCount();
    selection.any = first.has_value();
    if (first) {
        selection.firstIsFile = first->kind == ItemKind::File;
        selection.firstName = first->name.data();
    }
    const int number = ContextPopup(selection);
    if (number == noContextPopup)
        return false;
    HMENU popup = list.ContextPopupMenu(number);
    Prepare(popup, number, list);
    RECT window{};
    GetWindowRect(view, &window);
    TrackPopupMenuEx(popup, 0, window.left + point.x, window.top + point.y, GetParent(view), nullptr);
    return true;
}

void ShowContextMenuAtPointer(const FileList& list) {
    ShowContextMenu(list, MessagePointIn(list.Window()));
}

void ShowContextMenuAtSelection(const FileList& list) {
    POINT point{};
    if (const int first = list.FirstSelected(); first >= 0) {
        RECT icon{};
        icon.left = LVIR_ICON;
        if (SendMessageW(list.Window(), LVM_GETITEMRECT, static_cast<WPARAM>(first),
                         reinterpret_cast<LPARAM>(&icon)))
            point = {(icon.left + icon.right) / 2, (icon.top + icon.bottom) / 2};
    }
    ShowContextMenu(list, point);
}
