#include "common/dialog_frame.h"

#include "common/page_frame.h"

namespace {

HINSTANCE templateHolder = nullptr;
HWND centre = nullptr;

} // namespace

void PrepareDialogs(HINSTANCE instance, HWND mainWindow) {
    templateHolder = instance;
    centre = mainWindow;
}

int TemplateForWidth(const DialogTemplates& templates, int screenWidth) {
    switch (screenWidth) {
    case 240:
        return templates[0];
    case 320:
        return templates[1];
    default:
        return templates[2];
    }
}

INT_PTR RunDialog(const DialogTemplates& templates, HWND owner, DLGPROC procedure, void* parameter) {
    const int id = TemplateForWidth(templates, GetSystemMetrics(SM_CXSCREEN));
    HRSRC resource = FindResourceW(templateHolder, MAKEINTRESOURCEW(id), RT_DIALOG);
    if (!resource)
        return -1;
    const auto* dialog = static_cast<const DLGTEMPLATE*>(LoadResource(templateHolder, resource));
    return DialogBoxIndirectParamW(templateHolder, dialog, owner, procedure,
                                   reinterpret_cast<LPARAM>(parameter));
}

void CenterDialog(HWND dialog) {
    CenterOnMainWindow(dialog, centre);
}

void AddSoftKeys(HWND dialog, int menuBar) {
    SHMENUBARINFO info{};
    info.cbSize = sizeof(info);
    info.hwndParent = dialog;
    info.nToolBarId = static_cast<UINT>(menuBar);
    info.hInstRes = templateHolder;
    ce::SHCreateMenuBar(&info);
}

void FillScreen(HWND dialog) {
    SHINITDLGINFO info{SHIDIM_FLAGS, dialog, SHIDIF_DONEBUTTON | SHIDIF_SIZEDLG | SHIDIF_SIPDOWN};
    ce::SHInitDialog(&info);
}

void KeepBackKeyForEdits(HWND dialog) {
    constexpr UINT flags = SHMBOF_NODEFAULT | SHMBOF_NOTIFY;
    SendMessageW(ce::SHFindMenuBar(dialog), SHCMBM_OVERRIDEKEY, VK_TBACK, MAKELPARAM(flags, flags));
}

void GiveBackKeyToEdit(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(lParam) == VK_TBACK)
        ce::SHSendBackToFocusWindow(WM_HOTKEY, wParam, lParam);
}

// --- DialogFrame ---

INT_PTR DialogFrame::Run(HWND owner) {
    const INT_PTR result = RunDialog(look_.templates, owner, Procedure, this);
    window_ = nullptr;
    return result;
}

INT_PTR DialogFrame::OnMessage(UINT, WPARAM, LPARAM) {
    return FALSE;
}

INT_PTR CALLBACK DialogFrame::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* frame = reinterpret_cast<DialogFrame*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message == WM_INITDIALOG && !frame) {
        frame = reinterpret_cast<DialogFrame*>(lParam);
        frame->window_ = dialog;
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        return frame->Begin();
    }
    return frame ? frame->Answer(message, wParam, lParam) : FALSE;
}

INT_PTR DialogFrame::Begin() {
    CenterDialog(window_);
    AddSoftKeys(window_, look_.menuBar);
    if (look_.hasEdits)
        KeepBackKeyForEdits(window_);
    FillScreen(window_);
    HWND focus = OnInit();
    if (focus)
        SetFocus(focus);
    return focus == nullptr;
}

INT_PTR DialogFrame::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam), HIWORD(wParam)), TRUE;
    case WM_HOTKEY:
        return GiveBackKeyToEdit(wParam, lParam), TRUE;
    case WM_PAINT:
        return look_.isPage ? PaintPageHeader(window_) : FALSE;
    case WM_CTLCOLORSTATIC:
        return look_.isPage ? ColorPageTitle(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam))
                            : FALSE;
    case WM_INITDIALOG: // sent again, by another process: it would come without its object
        return FALSE;
    default:
        return OnMessage(message, wParam, lParam);
    }
}

void FitOnlyColumn(HWND view) {
    RECT client{};
    GetClientRect(view, &client);
    SendMessageW(view, LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(client.right, 0));
}
