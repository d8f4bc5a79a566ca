#include "foldertree/user_paths_dialog.h"

#include <algorithm>

#include "app/app_state.h"
#include "common/device_info.h"
#include "common/dialog_frame.h"
#include "common/name_rules.h"
#include "filelist/label_edit.h"
#include "foldertree/user_path_rules.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{
    {IDD_USER_PATHS_240, IDD_USER_PATHS_320, IDD_USER_PATHS_SMALL}, IDR_MENUBAR_USER_PATHS, true};

/// Opens the editor over the path wParam again, once the view is done with the refused text.
constexpr UINT UM_EDIT_PATH = WM_APP + 1;

class UserPathsDialog final : public DialogFrame {
  public:
    explicit UserPathsDialog(std::vector<OwnedText>& paths) : DialogFrame(look), paths_(paths) {}

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    HWND View() const { return Control(IDC_USER_PATHS); }
    void FitView();
    void InsertRow(std::size_t row);
    void SetRowText(std::size_t row);
    void SelectRow(std::size_t row);
    int SelectedRow() const;
    void GreyMenuEntries();
    void AddPath();
    void DeletePath();
    void EditPath(int row);
    void OnNotify(const NMHDR* notification);
    void OnBeginEdit();
    void OnEndEdit(int row, const wchar_t* reported);
    void TakePath(int row, const wchar_t* label);

    std::vector<OwnedText>& paths_;
    LabelEdit labelEdit_;
    bool editing_ = false; // also while a refused text is told of: it will be edited again
};

/// What is wrong with a path, or null.
const wchar_t* FaultOf(std::wstring_view text) {
    if (HasForbiddenPathCharacter(text))
        return forbiddenNameMessage;
    if (text == DeviceDisplayName())
        return nullptr;
    Path path;
    const DWORD attributes =
        path.Assign(text) ? ce::GetFileAttributesW(path.Text()) : INVALID_FILE_ATTRIBUTES;
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return L"This folder or file could not be found. Check the path or file name.";
    return nullptr;
}

HWND UserPathsDialog::OnInit() {
    FitView();
    for (std::size_t row = 0; row < paths_.size(); ++row)
        InsertRow(row);
    FitOnlyColumn(View());
    if (!paths_.empty())
        SelectRow(0);
    GreyMenuEntries();
    ce::SipShowIM(SIPF_ON);
    return View();
}

/// The view fills the dialog below its label, and the one column the view.
void UserPathsDialog::FitView() {
    RECT client{};
    GetClientRect(Window(), &client);
    POINT corner{};
    RECT place{};
    GetWindowRect(View(), &place);
    corner = {place.left, place.top};
    ScreenToClient(Window(), &corner);
    SetWindowPos(View(), nullptr, 0, corner.y, client.right, client.bottom - corner.y, SWP_NOZORDER);
    wchar_t heading[] = L"Path";
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_TEXT;
    column.fmt = LVCFMT_LEFT;
    column.pszText = heading;
    SendMessageW(View(), LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

void UserPathsDialog::InsertRow(std::size_t row) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = static_cast<int>(row);
    item.pszText = paths_[row].get();
    SendMessageW(View(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void UserPathsDialog::SetRowText(std::size_t row) {
    LVITEMW item{};
    item.pszText = paths_[row].get();
    SendMessageW(View(), LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
}

void UserPathsDialog::SelectRow(std::size_t row) {
    LVITEMW item{};
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    item.stateMask = item.state;
    SendMessageW(View(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    SendMessageW(View(), LVM_ENSUREVISIBLE, row, FALSE);
}

int UserPathsDialog::SelectedRow() const {
    return static_cast<int>(
        SendMessageW(View(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
}

void UserPathsDialog::GreyMenuEntries() {
    const HMENU menu = reinterpret_cast<HMENU>(
        SendMessageW(ce::SHFindMenuBar(Window()), SHCMBM_GETSUBMENU, 0, IDM_SOFTKEY_MENU));
    const auto enable = [menu](UINT command, bool enabled) {
        EnableMenuItem(menu, command, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
    };
    enable(IDM_USER_PATH_ADD, paths_.size() < userPathLimit);
    enable(IDM_USER_PATH_DELETE, !paths_.empty());
    enable(IDM_USER_PATH_EDIT, !paths_.empty());
}

void UserPathsDialog::OnCommand(int id, int) {
    if (editing_)
        return;
    switch (id) {
    case IDM_USER_PATH_ADD:
        return AddPath();
    case IDM_USER_PATH_DELETE:
        return DeletePath();
    case IDM_USER_PATH_EDIT:
        return EditPath(SelectedRow());
    case IDM_USER_PATHS_OK:
    case IDOK:
    case IDCANCEL:
        return End(IDOK);
    default:
        return;
    }
}

void UserPathsDialog::AddPath() {
    if (paths_.size() >= userPathLimit)
        return;
    paths_.push_back(CopyText(NewUserPath(appState.fileList.CurrentFolder().View(), DeviceDisplayName())));
    const std::size_t row = paths_.size() - 1;
    InsertRow(row);
    FitOnlyColumn(View());
    SelectRow(row);
    GreyMenuEntries();
    EditPath(static_cast<int>(row));
}

void UserPathsDialog::DeletePath() {
    const int row = SelectedRow();
    if (row < 0 || static_cast<std::size_t>(row) >= paths_.size())
        return;
    SendMessageW(View(), LVM_DELETEITEM, static_cast<WPARAM>(row), 0);
    paths_.erase(paths_.begin() + row);
    FitOnlyColumn(View());
    // The next one is selected, so that keys alone can go on.
    if (!paths_.empty())
        SelectRow(std::min(static_cast<std::size_t>(row), paths_.size() - 1));
    GreyMenuEntries();
}

void UserPathsDialog::EditPath(int row) {
    if (row < 0)
        return;
    SetFocus(View());
    SendMessageW(View(), LVM_EDITLABELW, static_cast<WPARAM>(row), 0);
}

INT_PTR UserPathsDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NOTIFY:
        OnNotify(reinterpret_cast<const NMHDR*>(lParam));
        return TRUE;
    case UM_EDIT_PATH:
        editing_ = false;
        EditPath(static_cast<int>(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

void UserPathsDialog::OnNotify(const NMHDR* notification) {
    SetWindowLongPtrW(Window(), DWLP_MSGRESULT, FALSE);
    if (notification->hwndFrom != View())
        return;
    switch (notification->code) {
    case LVN_BEGINLABELEDITW:
        return OnBeginEdit();
    case LVN_ENDLABELEDITW: {
        const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW*>(notification)->item;
        OnEndEdit(item.iItem, item.pszText);
        // What the row shows is set here: the view takes no text.
        SetWindowLongPtrW(Window(), DWLP_MSGRESULT, FALSE);
        return;
    }
    default:
        return;
    }
}

void UserPathsDialog::OnBeginEdit() {
    editing_ = true;
    labelEdit_.Begin(View());
    HWND editor = reinterpret_cast<HWND>(SendMessageW(View(), LVM_GETEDITCONTROL, 0, 0));
    SendMessageW(editor, EM_LIMITTEXT, pathCapacity - 1, 0);
}

void UserPathsDialog::OnEndEdit(int row, const wchar_t* reported) {
    const wchar_t* label = labelEdit_.Finish(reported);
    if (label && row >= 0 && static_cast<std::size_t>(row) < paths_.size())
        return TakePath(row, label);
    editing_ = false;
}

void UserPathsDialog::TakePath(int row, const wchar_t* label) {
    const std::wstring_view path = TypedUserPath(label, DeviceDisplayName());
    if (const wchar_t* fault = FaultOf(path)) {
        MessageBoxW(appState.mainWindow, fault, L"", MB_ICONERROR);
        PostMessageW(Window(), UM_EDIT_PATH, static_cast<WPARAM>(row), 0);
        return;
    }
    paths_[static_cast<std::size_t>(row)] = CopyText(path);
    SetRowText(static_cast<std::size_t>(row));
    editing_ = false;
}

} // namespace

void editUserPaths(std::vector<OwnedText>& paths) {
    const bool panelShown = (GetSipFlags() & SIPF_ON) != 0;
    UserPathsDialog(paths).Run(appState.mainWindow);
    if (!panelShown)
        ce::SipShowIM(SIPF_OFF);
}
