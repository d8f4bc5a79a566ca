#include "fileops/replace_dialogs.h"

#include <array>

#include "app/path.h"
#include "app/text.h"
#include "app/text_format.h"
#include "fileops/file_job.h"
#include "fileops/job_dialog.h"
#include "resources/resource.h"

namespace {

constexpr int fileTemplates[3] = {226, 227, 203};
constexpr int folderTemplates[3] = {220, 221, 109};

struct FileQuestion {
    const wchar_t* target;
    const wchar_t* source;
    int answer = modeSkipped; // a question that ends in any unforeseen way counts as "No"
    IconHandle targetIcon;
    IconHandle sourceIcon;
};

struct FolderQuestion {
    const wchar_t* target;
    int answer = skipExistingFolder;
};

/// The controls that show one of the two files.
struct FileControls {
    int icon;
    int size;
    int time;
};

const wchar_t* QuestionFormat(DWORD attributes) {
    if (attributes & FILE_ATTRIBUTE_SYSTEM)
        return L"SYSTEM file '%s' already exists.";
    if (attributes & FILE_ATTRIBUTE_READONLY)
        return L"this READ-ONLY file '%s' already exists.";
    return L"this file '%s' already exists.";
}

void ShowQuestion(HWND dialog, const wchar_t* target) {
    const DWORD attributes = ce::GetFileAttributesW(target);
    std::array<wchar_t, pathCapacity + 64> text{};
    FormatText(text, QuestionFormat(attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes),
               LeafOf(target).data());
    SetDlgItemTextW(dialog, IDC_JOB_STATUS, text.data());
}

IconHandle IconOf(const wchar_t* path) {
    SHFILEINFOW info{};
    ce::SHGetFileInfo(path, 0, &info, sizeof(info), SHGFI_ICON);
    return IconHandle(info.hIcon);
}

void ShowSize(HWND dialog, int control, const WIN32_FIND_DATAW& found) {
    const std::uint64_t size = (static_cast<std::uint64_t>(found.nFileSizeHigh) << 32) | found.nFileSizeLow;
    std::array<wchar_t, 64> number{};
    std::array<wchar_t, 96> text{};
    FormatText(number, L"%I64u", size);
    FormatInteger(number);
    FormatText(text, L"Size : %s bytes", number.data());
    SetDlgItemTextW(dialog, control, text.data());
}

void ShowTime(HWND dialog, int control, const FILETIME& time) {
    FILETIME local{};
    SYSTEMTIME parts{};
    FileTimeToLocalFileTime(&time, &local);
    FileTimeToSystemTime(&local, &parts);
    std::array<wchar_t, 64> moment{};
    std::array<wchar_t, 96> text{};
    FormatDateTime(parts, moment, 0);
    FormatText(text, L"Modified : %s", moment.data());
    SetDlgItemTextW(dialog, control, text.data());
}

/// Shows what the file's folder tells of it: a file in use by others cannot be opened.
IconHandle ShowFile(HWND dialog, const FileControls& controls, const wchar_t* path) {
    IconHandle icon = IconOf(path);
    SendDlgItemMessageW(dialog, controls.icon, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
    WIN32_FIND_DATAW found{};
    const FindHandle find(ce::FindFirstFileW(path, &found));
    if (find) {
        ShowSize(dialog, controls.size, found);
        ShowTime(dialog, controls.time, found.ftLastWriteTime);
    }
    return icon;
}

/// Under "From:" stands the file that is there, under "To:" the one that comes: in this order on purpose.
void OnFileQuestion(HWND dialog, FileQuestion& question) {
    ShowQuestion(dialog, question.target);
    question.targetIcon = ShowFile(dialog, {IDC_OLD_ICON, IDC_OLD_SIZE, IDC_OLD_TIME}, question.target);
    question.sourceIcon = ShowFile(dialog, {IDC_NEW_ICON, IDC_NEW_SIZE, IDC_NEW_TIME}, question.source);
    CenterOnMainWindow(dialog);
    ShowWindow(dialog, SW_SHOW);
    SetForegroundWindow(dialog);
    AddSoftKeys(dialog, IDR_MENUBAR_QUESTION);
    FillScreen(dialog);
}

INT_PTR CALLBACK FileProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        OnFileQuestion(dialog, *reinterpret_cast<FileQuestion*>(lParam));
        return TRUE;
    case WM_COMMAND: {
        const int answer = JobAnswerOf(LOWORD(wParam));
        reinterpret_cast<FileQuestion*>(GetWindowLongPtrW(dialog, DWLP_USER))->answer = answer;
        EndDialog(dialog, answer == modeAsk || answer == modeAll ? 1 : 2);
        return TRUE;
    }
    default:
        return FALSE;
    }
}

/// The name of the folder that holds `target`; the device's own for the root.
const wchar_t* HolderName(const wchar_t* target, Path& holder) {
    if (!holder.Assign(ParentOf(target)) || holder.IsEmpty())
        return DeviceDisplayName();
    return LeafOf(holder.View()).data();
}

void OnFolderQuestion(HWND dialog, const wchar_t* target) {
    Path holder;
    std::array<wchar_t, 2 * pathCapacity + 64> text{};
    FormatText(text, L"In '%s', a folder called '%s' already exists.", HolderName(target, holder),
               LeafOf(target).data());
    SetDlgItemTextW(dialog, IDC_FOLDER_TEXT, text.data());
    CenterOnMainWindow(dialog);
    AddSoftKeys(dialog, IDR_MENUBAR_YES_NO);
    FillScreen(dialog);
}

INT_PTR CALLBACK FolderProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        OnFolderQuestion(dialog, reinterpret_cast<FolderQuestion*>(lParam)->target);
        return TRUE;
    case WM_COMMAND: {
        const bool yes = LOWORD(wParam) == IDYES;
        reinterpret_cast<FolderQuestion*>(GetWindowLongPtrW(dialog, DWLP_USER))->answer =
            yes ? useExistingFolder : skipExistingFolder;
        EndDialog(dialog, yes ? 1 : 2);
        return TRUE;
    }
    default:
        return FALSE;
    }
}

} // namespace

int AskReplaceFile(HWND owner, const wchar_t* target, const wchar_t* source) {
    FileQuestion question{target, source, modeSkipped, {}, {}};
    RunDialog(fileTemplates, owner, FileProcedure, &question);
    return question.answer;
}

int AskReplaceFolder(HWND owner, const wchar_t* target) {
    FolderQuestion question{target};
    RunDialog(folderTemplates, owner, FolderProcedure, &question);
    return question.answer;
}
