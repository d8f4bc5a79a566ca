// The view itself: its making and end, its styles and columns, and the selection in it.

#include "app/app_state.h"
#include "app/menu_state.h"
#include "app/settings_store.h"
#include "common/file_facts.h"
#include "common/outside_path.h"
#include "filelist/file_list.h"
#include "filelist/list_input.h"
#include "filelist/view_styles.h"
#include "resources/resource.h"

namespace {

struct Column {
    const wchar_t* heading;
    int alignment;
};

constexpr Column columns[] = {
    {L"Name", LVCFMT_LEFT}, {L"Size", LVCFMT_RIGHT}, {L"Type", LVCFMT_LEFT}, {L"Modified", LVCFMT_LEFT}};

constexpr WORD iconSpacing = 72;

void SetStateOfAll(HWND view, UINT state, UINT mask) {
    LVITEMW all{};
    all.state = state;
    all.stateMask = mask;
    SendMessageW(view, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&all));
}

/// Whether the menu, or one of its popups, has the command.
bool HoldsCommand(HMENU menu, UINT command) {
    return CheckMenuItem(menu, command, MF_BYCOMMAND | MF_UNCHECKED) != static_cast<DWORD>(-1);
}

/// The place of the popup that holds `command`, or -1.
int PositionOfPopup(HMENU menu, UINT command) {
    constexpr int mostEntries = 32;
    for (int position = 0; position < mostEntries; ++position) {
        HMENU popup = GetSubMenu(menu, position);
        if (popup && HoldsCommand(popup, command))
            return position;
    }
    return -1;
}

} // namespace

void FileList::CreateList(HWND parent) {
    LoadListSettings(*this);
    window_ = CreateWindowExW(0, WC_LISTVIEWW, L"", viewBaseStyle, 0, 0, 0, 0, parent, nullptr,
                              appState.instance, nullptr);
    SubclassList(window_);
    InsertColumns();
    BuildIconSets();
    ChooseStartFolder();
    menu_.Reset(LoadMenuW(appState.instance, MAKEINTRESOURCEW(IDR_MENU_LIST)));
    AttachGoToMenu();
    BuildUserPathMenu();
    BuildSendToEntries();
    BuildFavorites();
    ApplyViewStyle(0);
}

void FileList::DestroyList() {
    SaveListSettings(*this);
    ClearList();
    DetachGoToMenu();
    menu_.Reset();
    DestroyWindow(window_);
    window_ = nullptr;
    largeIcons_.Discard();
    smallIcons_.Discard();
}

void FileList::InsertColumns() {
    for (int index = 0; const Column& column : columns) {
        wchar_t heading[16];
        CopyTextTo(heading, column.heading);
        LVCOLUMNW entry{};
        entry.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
        entry.fmt = column.alignment;
        entry.cx = static_cast<int>(options.columnWidths[static_cast<std::size_t>(index)]);
        entry.pszText = heading;
        entry.iSubItem = index;
        SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&entry));
        ++index;
    }
}

void FileList::ChooseStartFolder() {
    if (appState.startPath) {
        // A start path that leads nowhere falls back to the folder of the last run, unchecked.
        if (IsExistingFolder(appState.startPath) && !TakeOutsidePath(appState.startPath, currentFolder_))
            currentFolder_.Clear();
    } else if (!options.rememberLastFolder || !IsExistingFolder(currentFolder_.Text())) {
        currentFolder_.Clear();
    }
}

void FileList::AttachGoToMenu() {
    HMENU softKeyMenu = SoftKeyMenu();
    const int tools = PositionOfPopup(softKeyMenu, IDM_TOOLS_PC_LINK);
    if (tools >= 0)
        InsertMenuW(softKeyMenu, static_cast<UINT>(tools), MF_BYPOSITION | MF_POPUP,
                    reinterpret_cast<UINT_PTR>(GoToMenu()), L"Go to");
}

/// The preferred programs are offered by the files' context menu and by the soft key's.
void FileList::BuildSendToEntries() {
    HMENU ofFiles = ContextPopupMenu(POPUP_ARCHIVE_FILE);
    HMENU ofSoftKey = SoftKeyMenu();
    const HMENU menus[] = {GetSubMenu(ofFiles, PositionOfPopup(ofFiles, IDM_SENDTO_IR)),
                           GetSubMenu(ofSoftKey, PositionOfPopup(ofSoftKey, IDM_SENDTO_EMAIL))};
    preferredPrograms.buildPreferredMenu(appState.settings.sendToPath.data(), menus);
}

void FileList::DetachGoToMenu() {
    // It hangs in two menus; each would destroy it.
    HMENU softKeyMenu = SoftKeyMenu();
    const int position = PositionOfPopup(softKeyMenu, IDM_GOTO_USER_PATH);
    if (position >= 0)
        RemoveMenu(softKeyMenu, static_cast<UINT>(position), MF_BYPOSITION);
}

HMENU FileList::GoToMenu() const {
    return ContextPopupMenu(POPUP_GO_TO);
}

HMENU FileList::ContextPopupMenu(int number) const {
    return GetSubMenu(menu_.Get(), number);
}

void FileList::ApplyViewStyle(int command) {
    labelEdit.Leave(); // its entry takes another place
    ApplyViewCommand(options, command);
    SetViewStyle(window_, ViewWindowStyle(options));
    icons_ = ShownStyle(options) == viewIcon ? &largeIcons_ : &smallIcons_;
    RefreshCheckMarks();
    const auto extended = static_cast<DWORD>(SendMessageW(window_, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    SendMessageW(window_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 static_cast<LPARAM>(ViewExtendedStyle(options, extended)));
    if (ShownStyle(options) == viewIcon)
        SendMessageW(window_, LVM_SETICONSPACING, 0, MAKELPARAM(iconSpacing, iconSpacing));
    SendMessageW(window_, LVM_ARRANGE, LVA_DEFAULT, 0);
    InvalidateRect(appState.mainWindow, nullptr, FALSE);
}

void FileList::CycleViewStyle() {
    ApplyViewStyle(NextViewCommand(options));
}

void FileList::InvertSelection() {
    SetFocus(window_);
    for (int index = 0; index < ItemCount(); ++index) {
        const auto item = static_cast<WPARAM>(index);
        LVITEMW entry{};
        entry.stateMask = LVIS_SELECTED;
        if (!SendMessageW(window_, LVM_GETITEMSTATE, item, LVIS_SELECTED))
            entry.state = LVIS_SELECTED;
        SendMessageW(window_, LVM_SETITEMSTATE, item, reinterpret_cast<LPARAM>(&entry));
    }
}

void FileList::SelectAll() {
    SetFocus(window_);
    SetStateOfAll(window_, LVIS_SELECTED, LVIS_SELECTED);
}

void FileList::ReleaseSelection() {
    SetFocus(window_);
    SetStateOfAll(window_, 0, LVIS_SELECTED);
}

int FileList::SelectedCount() const {
    const auto count = static_cast<int>(SendMessageW(window_, LVM_GETSELECTEDCOUNT, 0, 0));
    if (!upLevel_ || count == 0)
        return count;
    LVFINDINFOW sought{};
    sought.flags = LVFI_PARAM;
    sought.lParam = reinterpret_cast<LPARAM>(upLevel_);
    const LRESULT index =
        SendMessageW(window_, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&sought));
    const bool selected =
        index >= 0 && SendMessageW(window_, LVM_GETITEMSTATE, static_cast<WPARAM>(index), LVIS_SELECTED);
    return selected ? count - 1 : count;
}

int FileList::FirstSelected() const {
    return static_cast<int>(
        SendMessageW(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
}

void FileList::SaveColumnWidths() {
    if (ShownStyle(options) != viewReport)
        return;
    for (WPARAM column = 0; column < options.columnWidths.size(); ++column)
        options.columnWidths[column] =
            static_cast<std::uint32_t>(SendMessageW(window_, LVM_GETCOLUMNWIDTH, column, 0));
}
