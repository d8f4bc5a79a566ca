#include "launch/choose_program_dialog.h"

#include <algorithm>
#include <utility>

#include "app/app_state.h"
#include "common/file_dialogs.h"
#include "common/wait_cursor.h"
#include "launch/shell_start.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{IDD_CHOOSE_PROGRAM_240, IDD_CHOOSE_PROGRAM_320, IDD_CHOOSE_PROGRAM_SMALL},
                          IDR_MENUBAR_CHOOSE_PROGRAM,
                          false,
                          true};

constexpr int iconSize = 16;

const wchar_t* SystemFolder() {
    return appState.settings.windowsPath.data();
}

/// Asks for a program file. False when the user cancelled.
bool BrowseForProgram(HWND owner, PathText& program) {
    OPENFILENAMEW request{};
    request.lStructSize = OPENFILENAME_SIZE_VERSION_400W; // the phone knows no longer one
    request.hwndOwner = owner;
    request.lpstrFilter = L"Executable (*.exe)\0*.exe\0";
    request.lpstrFile = program.data();
    request.nMaxFile = static_cast<DWORD>(program.size());
    request.lpstrInitialDir = SystemFolder();
    request.lpstrTitle = L"Select Program";
    request.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
    return ShowOpenFileDialog(request);
}

} // namespace

ProgramChooser::ProgramChooser(const ProgramChoice& choice) : DialogFrame(look), choice_(choice) {}

HWND ProgramChooser::OnInit() {
    wchar_t title[pathCapacity + 32];
    FormatText(title, L"Choose Program (%s)", choice_.name.Text());
    SetWindowTextW(Window(), title);
    LVCOLUMNW column{};
    SendMessageW(List(), LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    if (choice_.forceAlways) {
        SendMessageW(Control(IDC_ALWAYS_THIS_PROGRAM), BM_SETCHECK, BST_CHECKED, 0);
        EnableWindow(Control(IDC_ALWAYS_THIS_PROGRAM), FALSE);
    }
    fillList({});
    return List();
}

void ProgramChooser::OnCommand(int id, int) {
    switch (id) {
    case IDOK:
        OnConfirm();
        return End(1);
    case IDCANCEL:
        return End(0);
    case IDM_CHOOSE_PROGRAM_BROWSE:
        return OnBrowse();
    default:
        return;
    }
}

void ProgramChooser::OnBrowse() {
    PathText program{};
    if (!BrowseForProgram(Window(), program))
        return;
    if (TakeBrowsed(program.data()))
        fillList(program.data());
}

/// Stores the program at once, or keeps it until it is chosen where cancelling may leave nothing behind.
bool ProgramChooser::TakeBrowsed(std::wstring_view program) {
    AssociationTexts texts = ComposeAssociation({.program = program}, SystemFolder());
    if (ce::OwnsRegistry())
        return writeAssociation(HKEY_CLASSES_ROOT, texts);
    browsed_ = std::move(texts);
    return true;
}

/// Adds the program that is not stored yet, in the place of the class that it would replace.
void ProgramChooser::AddBrowsed(ProgramList& programs) const {
    if (!browsed_)
        return;
    std::erase_if(programs.records, [&](const ProgramRecord& record) {
        return EqualNoCase(record.className.get(), browsed_->className.get());
    });
    std::optional<ProgramRecord> record = MakeProgramRecord(
        browsed_->className.get(), browsed_->description.get(), browsed_->command.get(), SystemFolder());
    if (record)
        programs.records.push_back(std::move(*record));
}

void ProgramChooser::StoreBrowsed(const ProgramRecord& chosen) {
    if (browsed_ && EqualNoCase(chosen.className.get(), browsed_->className.get()))
        writeAssociation(HKEY_CLASSES_ROOT, *browsed_);
}

void ProgramChooser::OnConfirm() {
    const ProgramRecord* record = Selected();
    if (!record)
        return;
    StoreBrowsed(*record);
    if (SendMessageW(Control(IDC_ALWAYS_THIS_PROGRAM), BM_GETCHECK, 0, 0) == BST_CHECKED)
        setExtensionClass(HKEY_CLASSES_ROOT, Extension(), record->className.get());
    if (choice_.launch)
        StartOnFile(*record);
}

void ProgramChooser::StartOnFile(const ProgramRecord& record) const {
    Path document;
    if (!document.AssignChild(choice_.folder.View(), choice_.name.View()))
        return;
    const OwnedText program = CopyText(record.program.get());
    const OwnedText parameters = FillInDocument(record.parameters.get(), document.View());
    StartThroughShell({.file = program.get(), .parameters = parameters.get()});
}

void ProgramChooser::fillList(std::wstring_view selectProgramPath) {
    const WaitCursor wait;
    ShowWindow(List(), SW_HIDE);
    ProgramList programs = enumeratePrograms(HKEY_CLASSES_ROOT, Extension(), SystemFolder());
    AddBrowsed(programs);
    ImageListHandle icons(ImageList_Create(iconSize, iconSize, ILC_COLOR32 | ILC_MASK, 1, 2));
    // The shell may let messages in: the records are not the dialog's before it is done.
    for (ProgramRecord& record : programs.records)
        record.iconIndex = AddIcon(record, icons.Get());
    SendMessageW(List(), LVM_DELETEALLITEMS, 0, 0);
    SendMessageW(List(), LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(icons.Get()));
    icons_ = std::move(icons);
    programs_ = std::move(programs);
    for (int row = 0; const ProgramRecord& record : programs_.records)
        AddProgram(record, row++);
    SelectRow(RowToSelect(selectProgramPath));
    FitOnlyColumn(List());
    ShowWindow(List(), SW_SHOW);
    SetFocus(List());
}

int ProgramChooser::AddIcon(const ProgramRecord& record, HIMAGELIST icons) {
    SHFILEINFOW info{};
    if (!ce::SHGetFileInfo(record.program.get(), 0, &info, sizeof(info), SHGFI_ICON | SHGFI_SMALLICON))
        return -1;
    const IconHandle icon(info.hIcon);
    return ImageList_ReplaceIcon(icons, -1, icon.Get());
}

void ProgramChooser::AddProgram(const ProgramRecord& record, int row) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    item.iItem = row;
    item.pszText = record.description.get();
    item.iImage = record.iconIndex;
    item.lParam = row;
    SendMessageW(List(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

int ProgramChooser::RowToSelect(std::wstring_view selectProgramPath) const {
    const auto& records = programs_.records;
    const auto found = std::find_if(records.begin(), records.end(), [&](const ProgramRecord& record) {
        return selectProgramPath.empty()
                   ? EqualNoCase(record.className.get(), programs_.extensionClass.data())
                   : EqualNoCase(record.program.get(), selectProgramPath);
    });
    return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}

void ProgramChooser::SelectRow(int row) {
    if (row < 0)
        return;
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(List(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    SendMessageW(List(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

const ProgramRecord* ProgramChooser::Selected() const {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = static_cast<int>(
        SendMessageW(List(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
    if (item.iItem < 0 || !SendMessageW(List(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)))
        return nullptr;
    if (static_cast<std::size_t>(item.lParam) >= programs_.records.size())
        return nullptr;
    const std::wstring_view description =
        programs_.records[static_cast<std::size_t>(item.lParam)].description.get();
    for (const ProgramRecord& record : programs_.records) {
        if (std::wstring_view(record.description.get()) == description)
            return &record;
    }
    return nullptr;
}

HWND ProgramChooser::List() const {
    return Control(IDC_PROGRAM_LIST);
}

const wchar_t* ProgramChooser::Extension() const {
    return ExtensionOf(choice_.name.View()).data();
}
