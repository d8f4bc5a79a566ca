#include "fileops/properties_page.h"

#include "app/app_state.h"
#include "common/device_info.h"
#include "common/text_format.h"
#include "fileops/contents_count.h"
#include "fileops/contents_page.h"
#include "fileops/shortcut_page.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{228, 229, 111}, IDR_MENUBAR_PROPERTIES, true, true};

constexpr int attributeBoxes[] = {IDC_READ_ONLY, IDC_HIDDEN, IDC_ROM, IDC_ARCHIVE};

} // namespace

PropertiesPage::PropertiesPage(PropertiesRequest& request)
    : DialogFrame(look), request_(request),
      kind_(ObjectKindOf(request.entry.kind, request.entry.name.data())) {}

HWND PropertiesPage::OnInit() {
    GreyMenuEntries();
    SetDlgItemTextW(Window(), IDC_PAGE_TITLE, request_.title.data());
    SendMessageW(Control(IDC_ENTRY_NAME), EM_LIMITTEXT, pathCapacity - 1, 0);
    SetDlgItemTextW(Window(), IDC_ENTRY_NAME, request_.entry.name.data());
    request_.newName = request_.entry.name;
    ShowEntry();
    return nullptr;
}

void PropertiesPage::OnCommand(int id, int notification) {
    switch (id) {
    case IDM_PROPERTIES_OK:
    case IDCANCEL:
        return End(1);
    case IDM_PROPERTIES_SHORTCUT:
        ShortcutPage(request_).Run(Window());
        return;
    case IDM_PROPERTIES_CONTENTS:
        ContentsPage({&request_.entry, 1}, request_.title.data()).Run(Window());
        return;
    case IDC_READ_ONLY:
        return OnAttributeClick(id, FILE_ATTRIBUTE_READONLY);
    case IDC_HIDDEN:
        return OnAttributeClick(id, FILE_ATTRIBUTE_HIDDEN);
    case IDC_ARCHIVE:
        return OnAttributeClick(id, FILE_ATTRIBUTE_ARCHIVE);
    case IDC_ENTRY_NAME:
        if (notification == EN_CHANGE)
            GetDlgItemTextW(Window(), id, request_.newName.data(), static_cast<int>(pathCapacity));
        return;
    default:
        return;
    }
}

void PropertiesPage::GreyMenuEntries() {
    const HMENU menu = reinterpret_cast<HMENU>(
        SendMessageW(ce::SHFindMenuBar(Window()), SHCMBM_GETSUBMENU, 0, IDM_SOFTKEY_MENU));
    if (kind_ != ObjectKind::Shortcut)
        EnableMenuItem(menu, IDM_PROPERTIES_SHORTCUT, MF_BYCOMMAND | MF_GRAYED);
    if (kind_ != ObjectKind::Folder)
        EnableMenuItem(menu, IDM_PROPERTIES_CONTENTS, MF_BYCOMMAND | MF_GRAYED);
}

void PropertiesPage::ShowEntry() {
    Path path;
    if (!PathOfEntry(request_.entry, path))
        return ShowAttributes(INVALID_FILE_ATTRIBUTES);
    const DWORD attributes = ce::GetFileAttributesW(path.Text());
    request_.initialAttributes = attributes;
    request_.newAttributes = attributes;
    ShowAttributes(attributes);
    ShowIconAndType(path, attributes);
    WIN32_FIND_DATAW findData{};
    const FindHandle find(ce::FindFirstFileW(path.Text(), &findData));
    if (find)
        ShowFound(findData);
}

void PropertiesPage::ShowIconAndType(const Path& path, DWORD attributes) {
    SHFILEINFOW info{};
    if (path.IsEmpty())
        info.hIcon = LoadIconW(appState.instance, MAKEINTRESOURCEW(IDI_DEVICE_LARGE));
    else if (ce::SHGetFileInfo(path.Text(), 0, &info, sizeof(info), SHGFI_ICON | SHGFI_TYPENAME))
        icon_.Reset(info.hIcon);
    SendDlgItemMessageW(Window(), IDC_ENTRY_ICON, STM_SETICON, reinterpret_cast<WPARAM>(info.hIcon), 0);

    const bool inRom = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_INROM);
    std::array<wchar_t, typeTextCapacity + 16> type{};
    FormatText(type, inRom ? L"%s (in ROM)" : L"%s", info.szTypeName);
    SetDlgItemTextW(Window(), IDC_ENTRY_TYPE, type.data());
}

void PropertiesPage::ShowFound(const WIN32_FIND_DATAW& findData) {
    std::array<wchar_t, 128> size{};
    FormatPropertySize(findData.nFileSizeLow, size);
    SetDlgItemTextW(Window(), IDC_ENTRY_SIZE, size.data());
    ShowTime(IDC_ENTRY_CREATED, findData.ftCreationTime);
    ShowTime(IDC_ENTRY_MODIFIED, findData.ftLastWriteTime);
}

void PropertiesPage::ShowTime(int control, const FILETIME& time) {
    FILETIME local{};
    SYSTEMTIME shown{};
    std::array<wchar_t, 128> text{};
    FileTimeToLocalFileTime(&time, &local);
    FileTimeToSystemTime(&local, &shown);
    FormatDateTime(shown, text, 0);
    SetDlgItemTextW(Window(), control, text.data());
}

void PropertiesPage::ShowAttributes(DWORD attributes) {
    if (kind_ == ObjectKind::Folder || attributes == INVALID_FILE_ATTRIBUTES) {
        for (const int box : attributeBoxes)
            EnableWindow(Control(box), FALSE);
        return;
    }
    const auto check = [&](int box, DWORD attribute, WPARAM state) {
        if (attributes & attribute)
            SendMessageW(Control(box), BM_SETCHECK, state, 0);
    };
    check(IDC_READ_ONLY, FILE_ATTRIBUTE_READONLY, BST_CHECKED);
    check(IDC_HIDDEN, FILE_ATTRIBUTE_HIDDEN, BST_CHECKED);
    check(IDC_ARCHIVE, FILE_ATTRIBUTE_ARCHIVE, BST_CHECKED);
    check(IDC_ROM, FILE_ATTRIBUTE_SYSTEM, BST_INDETERMINATE); // for information only
}

void PropertiesPage::OnAttributeClick(int control, DWORD attribute) {
    const bool checked = SendMessageW(Control(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
    request_.newAttributes = AttributesAfterClick(request_.newAttributes, attribute, checked);
}
