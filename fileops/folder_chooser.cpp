#include "fileops/folder_chooser.h"

#include <array>

#include "app/app_state.h"
#include "common/device_info.h"
#include "common/dialog_frame.h"
#include "common/name_rules.h"
#include "common/system_folder.h"
#include "common/text.h"
#include "common/wait_cursor.h"
#include "fileops/chooser_tree.h"
#include "fileops/rename_folder_dialog.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{218, 219, 108}, IDR_MENUBAR_CHOOSER};

/// The attempt with the last number is given up whatever comes of it.
constexpr int lastNewFolder = 1024;

class FolderChooser final : public DialogFrame {
  public:
    FolderChooser(const wchar_t* title, FolderChooserRequest& choice)
        : DialogFrame(look), title_(title), choice_(choice) {}

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnNotify(const NMHDR* notification);
    void OnContextMenu(POINT point);
    void Confirm();
    void MakeFolder();
    void RenameFolder();
    void RenameTo(const Path& folder, const PathText& name);
    void Report(const wchar_t* text, UINT icon);

    const wchar_t* title_;
    FolderChooserRequest& choice_;
    ChooserTree tree_;
};

HWND FolderChooser::OnInit() {
    if (title_[0] != L'\0') {
        SetWindowTextW(Window(), title_);
        SetDlgItemTextW(Window(), IDC_PAGE_TITLE, title_);
    }
    const WaitCursor wait;
    tree_.Create(Window());
    tree_.selectPath(choice_.folder.View());
    ce::SipShowIM(SIPF_OFF);
    return tree_.Window();
}

void FolderChooser::OnCommand(int id, int) {
    switch (id) {
    case IDM_CHOOSER_OK:
        return Confirm();
    case IDCANCEL:
        return End(IDCANCEL);
    case IDM_CHOOSER_NEW_FOLDER:
        return MakeFolder();
    case IDM_CHOOSER_RENAME:
        return RenameFolder();
    default:
        return;
    }
}

INT_PTR FolderChooser::OnMessage(UINT message, WPARAM, LPARAM lParam) {
    if (message != WM_NOTIFY)
        return FALSE;
    OnNotify(reinterpret_cast<const NMHDR*>(lParam));
    return TRUE;
}

void FolderChooser::OnNotify(const NMHDR* notification) {
    if (notification->hwndFrom != tree_.Window())
        return;
    switch (notification->code) {
    case TVN_ITEMEXPANDINGW:
        return tree_.onItemExpanding(*reinterpret_cast<const NMTREEVIEWW*>(notification));
    case TVN_ITEMEXPANDEDW:
        return tree_.onItemExpanded(*reinterpret_cast<const NMTREEVIEWW*>(notification));
    case TVN_BEGINLABELEDITW:
        // Folders are renamed in a dialog of their own.
        SetWindowLongPtrW(Window(), DWLP_MSGRESULT, TRUE);
        return;
    case GN_CONTEXTMENU:
        return OnContextMenu(reinterpret_cast<const NMRGINFO*>(notification)->ptAction);
    default:
        return;
    }
}

void FolderChooser::OnContextMenu(POINT point) {
    if (!tree_.Caret())
        return;
    const MenuHandle menu(LoadMenuW(appState.instance, MAKEINTRESOURCEW(IDR_MENU_LIST)));
    TrackPopupMenuEx(GetSubMenu(menu.Get(), POPUP_CHOOSER), 0, point.x, point.y, Window(), nullptr);
}

void FolderChooser::Report(const wchar_t* text, UINT icon) {
    MessageBoxW(Window(), text, L"", icon);
}

void FolderChooser::Confirm() {
    Path folder;
    if (!tree_.PathBelowRoot(tree_.Caret(), folder))
        return;
    choice_.folder = folder;
    End(IDOK);
}

void FolderChooser::MakeFolder() {
    HTREEITEM parent = tree_.Caret();
    Path folder;
    if (!parent || !tree_.PathBelowRoot(parent, folder))
        return;
    std::array<wchar_t, 32> name{};
    CopyTextTo(name, L"New Folder");
    Path path;
    for (int number = 1; !path.AssignChild(folder.View(), name.data()) ||
                         !ce::CreateDirectoryW(path.Text(), nullptr) || number == lastNewFolder;) {
        if (number == lastNewFolder)
            return Report(L"This folder cannot be created.", MB_ICONHAND);
        FormatText(name, L"New Folder(%d)", ++number);
    }
    tree_.AddMade(parent, name.data());
    SetFocus(tree_.Window());
    choice_.changed = true;
}

void FolderChooser::RenameFolder() {
    HTREEITEM node = tree_.Caret();
    if (!node)
        return;
    PathText renameBuffer{};
    tree_.ReadText(node, renameBuffer);
    if (tree_.IsRoot(node)) {
        std::array<wchar_t, pathCapacity + 32> text{};
        FormatText(text, L"%s\n\ncannot be renamed.", renameBuffer.data());
        return Report(text.data(), MB_ICONEXCLAMATION);
    }
    const bool panelShown = (GetSipFlags() & SIPF_ON) != 0;
    if (!panelShown)
        ce::SipShowIM(SIPF_ON);
    Path folder; // by which it is found again: behind the question its node may go
    const bool fits = tree_.PathBelowRoot(node, folder);
    if (AskFolderName(Window(), renameBuffer) && fits)
        RenameTo(folder, renameBuffer);
    if (!panelShown)
        ce::SipShowIM(SIPF_OFF);
    SetFocus(tree_.Window());
}

void FolderChooser::RenameTo(const Path& folder, const PathText& name) {
    const std::wstring_view newName = StoredName(name.data());
    if (newName == LeafOf(folder.View()))
        return;
    // A backslash would put the folder somewhere else.
    Path renamed;
    if (SystemFolder(appState.settings.windowsPath.data())
            .KeepsItsName(ParentOf(folder.View()), LeafOf(folder.View()), newName))
        return Report(systemFolderMessage, MB_ICONHAND);
    if (newName.find_first_of(L"\\/") != std::wstring_view::npos ||
        !renamed.AssignChild(ParentOf(folder.View()), newName) ||
        !ce::MoveFileW(folder.Text(), renamed.Text()))
        return Report(L"This file cannot be renamed.", MB_ICONHAND);
    if (HTREEITEM node = tree_.NodeAtPath(folder.View()))
        tree_.SetName(node, LeafOf(renamed.View()).data());
    choice_.changed = true;
}

} // namespace

bool ChooseFolder(const wchar_t* title, FolderChooserRequest& choice, HWND owner) {
    return FolderChooser(title, choice).Run(owner ? owner : appState.mainWindow) == IDOK;
}
