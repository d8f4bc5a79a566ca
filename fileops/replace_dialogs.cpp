#include "fileops/replace_dialogs.h"

#include <array>

#include "common/device_info.h"
#include "common/dialog_frame.h"
#include "common/path.h"
#include "common/text.h"
#include "common/text_format.h"
#include "fileops/file_job.h"
#include "fileops/fitting_text.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook fileLook{{226, 227, 203}, IDR_MENUBAR_QUESTION};
constexpr DialogLook folderLook{{220, 221, 109}, IDR_MENUBAR_YES_NO};

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
    ShowFittingText(GetDlgItem(dialog, IDC_JOB_STATUS), [&](std::size_t limit) {
        PathText name{};
        CutName(name, LeafOf(target), limit);
        FormatText(text, QuestionFormat(attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes), name.data());
        return text.data();
    });
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

class ReplaceFileDialog final : public DialogFrame {
  public:
    ReplaceFileDialog(const wchar_t* target, const wchar_t* source)
        : DialogFrame(fileLook), target_(target), source_(source) {}
    int Answer() const { return answer_; }

  private:
    /// Under "From:" stands the file that is there, under "To:" the one that comes: in this order on purpose.
    HWND OnInit() override {
        ShowQuestion(Window(), target_);
        targetIcon_ = ShowFile(Window(), {IDC_OLD_ICON, IDC_OLD_SIZE, IDC_OLD_TIME}, target_);
        sourceIcon_ = ShowFile(Window(), {IDC_NEW_ICON, IDC_NEW_SIZE, IDC_NEW_TIME}, source_);
        ShowWindow(Window(), SW_SHOW);
        SetForegroundWindow(Window());
        return nullptr;
    }

    void OnCommand(int id, int) override {
        answer_ = JobAnswerOf(id);
        End(AgreesTo(answer_) ? 1 : 2);
    }

    const wchar_t* target_;
    const wchar_t* source_;
    IconHandle targetIcon_;
    IconHandle sourceIcon_;
    int answer_ = modeSkipped; // a question that ends in any unforeseen way counts as "No"
};

/// The name of the folder that holds `target`; the device's own for the root.
const wchar_t* HolderName(const wchar_t* target, Path& holder) {
    if (!holder.Assign(ParentOf(target)) || holder.IsEmpty())
        return DeviceDisplayName();
    return LeafOf(holder.View()).data();
}

class ReplaceFolderDialog final : public DialogFrame {
  public:
    explicit ReplaceFolderDialog(const wchar_t* target) : DialogFrame(folderLook), target_(target) {}
    int Answer() const { return answer_; }

  private:
    HWND OnInit() override {
        Path holder;
        std::array<wchar_t, 2 * pathCapacity + 64> text{};
        const wchar_t* holderName = HolderName(target_, holder);
        ShowFittingText(Control(IDC_FOLDER_TEXT), [&](std::size_t limit) {
            PathText shownHolder{};
            PathText shownName{};
            CutName(shownHolder, holderName, limit);
            CutName(shownName, LeafOf(target_), limit);
            FormatText(text, L"In '%s', a folder called '%s' already exists.", shownHolder.data(),
                       shownName.data());
            return text.data();
        });
        return nullptr;
    }

    void OnCommand(int id, int) override {
        answer_ = id == IDYES ? useExistingFolder : skipExistingFolder;
        End(id == IDYES ? 1 : 2);
    }

    const wchar_t* target_;
    int answer_ = skipExistingFolder;
};

} // namespace

int AskReplaceFile(HWND owner, const wchar_t* target, const wchar_t* source) {
    ReplaceFileDialog dialog(target, source);
    dialog.Run(owner);
    return dialog.Answer();
}

int AskReplaceFolder(HWND owner, const wchar_t* target) {
    ReplaceFolderDialog dialog(target);
    dialog.Run(owner);
    return dialog.Answer();
}
