#include "fileops/shortcut_page.h"

#include "fileops/properties_rules.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{232, 233, 113}, IDR_MENUBAR_OK, true, true};

} // namespace

ShortcutPage::ShortcutPage(PropertiesRequest& request) : DialogFrame(look), request_(request) {}

HWND ShortcutPage::OnInit() {
    SetDlgItemTextW(Window(), IDC_PAGE_TITLE, request_.title.data());
    SetDlgItemTextW(Window(), IDC_SHORTCUT_NAME, request_.entry.name.data());
    SendMessageW(Control(IDC_TARGET), EM_LIMITTEXT, pathCapacity - 1, 0);
    if (!ReadTarget())
        EnableWindow(Control(IDC_TARGET), FALSE);
    else if (ShowTarget())
        return nullptr;
    SetDlgItemTextW(Window(), IDC_TARGET_TYPE, L"Invalid Shortcut");
    return nullptr;
}

/// Puts the target into the field, which the request follows. False when it cannot be read.
bool ShortcutPage::ReadTarget() {
    Path path;
    PathText target{};
    if (!path.AssignChild(request_.entry.folder.data(), request_.entry.name.data()) ||
        !ce::SHGetShortcutTarget(path.Text(), target.data(), static_cast<int>(target.size())))
        return false;
    request_.initialTarget = target;
    SetDlgItemTextW(Window(), IDC_TARGET, target.data());
    return true;
}

/// Shows the icon and the type of the file that the target names. False when there is no such file.
bool ShortcutPage::ShowTarget() {
    Path file;
    SHFILEINFOW info{};
    if (!file.Assign(FileOfTarget(request_.initialTarget.data())) ||
        ce::GetFileAttributesW(file.Text()) == INVALID_FILE_ATTRIBUTES)
        return false;
    ce::SHGetFileInfo(file.Text(), 0, &info, sizeof(info), SHGFI_ICON | SHGFI_TYPENAME);
    icon_.Reset(info.hIcon);
    SendDlgItemMessageW(Window(), IDC_TARGET_ICON, STM_SETICON, reinterpret_cast<WPARAM>(info.hIcon), 0);
    SetDlgItemTextW(Window(), IDC_TARGET_TYPE, info.szTypeName);
    return true;
}

void ShortcutPage::OnCommand(int id, int notification) {
    switch (id) {
    case IDM_PROPERTIES_OK:
    case IDCANCEL:
        return End(1);
    case IDC_TARGET:
        if (notification == EN_CHANGE)
            GetDlgItemTextW(Window(), id, request_.newTarget.data(), static_cast<int>(pathCapacity));
        return;
    default:
        return;
    }
}
