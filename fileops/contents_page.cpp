#include "fileops/contents_page.h"

#include <array>

#include "common/device_info.h"
#include "common/text_format.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{230, 231, 112}, IDR_MENUBAR_OK, false, true};

constexpr UINT_PTR countTimer = 1;
constexpr UINT countPause = 10; // milliseconds; keys and taps come in between

// What most folders need is counted before the page appears; larger ones go on in small steps.
constexpr DWORD firstStep = 300;
constexpr DWORD step = 50;

} // namespace

ContentsPage::ContentsPage(std::span<const SelectionEntry> entries, const wchar_t* title)
    : DialogFrame(look), entries_(entries), title_(title), count_(entries) {}

HWND ContentsPage::OnInit() {
    SetDlgItemTextW(Window(), IDC_PAGE_TITLE, title_);
    ShowLocation();
    wait_.emplace();
    if (CountOn(firstStep))
        SetTimer(Window(), countTimer, countPause, nullptr);
    return nullptr;
}

void ContentsPage::OnCommand(int id, int) {
    if (id == IDM_PROPERTIES_OK || id == IDCANCEL)
        End(1);
}

INT_PTR ContentsPage::OnMessage(UINT message, WPARAM, LPARAM) {
    switch (message) {
    case WM_TIMER:
        return OnTimer(), TRUE;
    case WM_SETCURSOR:
        return KeepWaitCursor();
    default:
        return FALSE;
    }
}

void ContentsPage::ShowLocation() {
    const wchar_t* folder = entries_.front().folder.data();
    SetDlgItemTextW(Window(), IDC_CONTENTS_LOCATION, *folder ? folder : DeviceDisplayName());
}

/// Counts for a while and shows how far it has come. Returns whether something is left.
bool ContentsPage::CountOn(DWORD milliseconds) {
    const bool left = count_.CountFor(milliseconds);
    ShowTotals();
    if (!left)
        wait_.reset();
    return left;
}

void ContentsPage::ShowTotals() {
    const ContentsTotals totals = count_.Totals();
    std::array<wchar_t, 64> text{};
    FormatText(text, L"Folders : %d", totals.folders);
    SetDlgItemTextW(Window(), IDC_FOLDER_COUNT, text.data());
    if (totals.unlisted == 0)
        FormatText(text, L"Files :     %d", totals.files);
    else
        FormatText(text, L"Files :     %d, not shown : %d", totals.files, totals.unlisted);
    SetDlgItemTextW(Window(), IDC_FILE_COUNT, text.data());
    FormatSize(totals.bytes, text, L"%s KB", L"%s MB");
    SetDlgItemTextW(Window(), IDC_CONTENTS_SIZE, text.data());

    std::array<wchar_t, 64> number{};
    FormatText(number, L"%lu", static_cast<unsigned long>(totals.bytes));
    FormatInteger(number);
    FormatText(text, L"(%s bytes)", number.data());
    SetDlgItemTextW(Window(), IDC_CONTENTS_BYTES, text.data());
}

void ContentsPage::OnTimer() {
    if (!CountOn(step))
        KillTimer(Window(), countTimer);
}

INT_PTR ContentsPage::KeepWaitCursor() {
    if (!wait_)
        return FALSE;
    SetWindowLongPtrW(Window(), DWLP_MSGRESULT, TRUE);
    return TRUE;
}
