#include "app/option_page.h"

#include "resources/resource.h"

void OptionPage::OnCommand(int id, int) {
    switch (id) {
    case IDM_OPTIONS_OK:
    case IDOK: {
        NMHDR apply{Window(), 0, PSN_APPLY};
        SendMessageW(Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&apply));
        return End(IDOK);
    }
    case IDCANCEL:
        return End(IDCANCEL);
    default:
        return;
    }
}

/// The page is told to take over as a property sheet tells its pages.
INT_PTR OptionPage::OnMessage(UINT message, WPARAM, LPARAM lParam) {
    const auto* notification = reinterpret_cast<const NMHDR*>(lParam);
    if (message != WM_NOTIFY || !notification || notification->code != PSN_APPLY)
        return FALSE;
    TakeOver();
    return TRUE;
}

bool OptionPage::IsChecked(int box) const {
    return SendMessageW(Control(box), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void OptionPage::Check(int box, bool checked) const {
    SendMessageW(Control(box), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void OptionPage::Enable(int control, bool enabled) const {
    EnableWindow(Control(control), enabled);
}

void OptionPage::ShowPath(int field, const PathText& path) const {
    SendMessageW(Control(field), EM_LIMITTEXT, path.size() - 1, 0);
    SetDlgItemTextW(Window(), field, path.data());
}

void OptionPage::ReadPath(int field, PathText& path) const {
    GetDlgItemTextW(Window(), field, path.data(), static_cast<int>(path.size()));
}
