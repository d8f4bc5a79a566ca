#include "search/search_dialog.h"

#include <cstdlib>

#include "app/app_state.h"
#include "common/device_info.h"
#include "fileops/folder_chooser.h"
#include "resources/resource.h"
#include "search/name_match.h"

namespace {

constexpr DialogLook look{{IDD_SEARCH_240, IDD_SEARCH_320, IDD_SEARCH_SMALL}, IDR_MENUBAR_SEARCH, true, true};

/// The dialog to itself, hidden by then: search.
constexpr UINT UM_SEARCH = WM_USER + 100;

constexpr UINT_PTR searchTimer = 1;
constexpr UINT searchPause = 10; // milliseconds; the windows are drawn in between

// Most searches are over before a window would have to be drawn.
constexpr DWORD firstStep = 100;
constexpr DWORD step = 100;

constexpr int betweenEntry = 1; // of the date list

constexpr int dateBoxes[] = {IDC_SEARCH_DATE_MODE, IDC_SEARCH_FIRST_DAY, IDC_SEARCH_LAST_DAY};
constexpr int sizeBoxes[] = {IDC_SEARCH_SIZE_MODE, IDC_SEARCH_KILOBYTES};

} // namespace

FileSearch::FileSearch() : DialogFrame(look) {}

HWND FileSearch::OnInit() {
    FillLists();
    ShowLocation(appState.fileList.CurrentFolder());
    SetDlgItemTextW(Window(), IDC_SEARCH_KILOBYTES, L"0");
    SendMessageW(Control(IDC_SEARCH_CASE), BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(Control(IDC_SEARCH_SUBFOLDERS), BM_SETCHECK, BST_CHECKED, 0);
    FollowDateBox();
    FollowSizeBox();
    ce::SipShowIM(SIPF_ON);
    return Control(IDC_SEARCH_NAME);
}

void FileSearch::OnCommand(int id, int notification) {
    switch (id) {
    case IDM_SEARCH_OK:
    case IDOK:
        ShowWindow(Window(), SW_HIDE);
        PostMessageW(Window(), UM_SEARCH, 0, 0);
        return;
    case IDM_SEARCH_EXPLORER:
        return OnExplorer();
    case IDM_SEARCH_CANCEL:
    case IDCANCEL:
        return End(0);
    case IDC_SEARCH_DATE:
        return FollowDateBox();
    case IDC_SEARCH_DATE_MODE:
        if (notification == CBN_SELCHANGE)
            FollowDateBox();
        return;
    case IDC_SEARCH_SIZE:
        return FollowSizeBox();
    default:
        return;
    }
}

INT_PTR FileSearch::OnMessage(UINT message, WPARAM, LPARAM) {
    switch (message) {
    case UM_SEARCH:
        return BeginSearch(), TRUE;
    case WM_TIMER:
        return SearchOn(step), TRUE;
    default:
        return FALSE;
    }
}

void FileSearch::FillLists() {
    const auto add = [&](int list, const wchar_t* text) {
        SendMessageW(Control(list), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    };
    for (const wchar_t* text : {L"", L"Area", L"Before", L"After"})
        add(IDC_SEARCH_DATE_MODE, text);
    for (const wchar_t* text : {L"", L"MIN", L"MAX"})
        add(IDC_SEARCH_SIZE_MODE, text);
}

void FileSearch::ShowLocation(const Path& folder) {
    const bool isFolder = !folder.IsEmpty() && !folder.IsSearchFolder();
    SetDlgItemTextW(Window(), IDC_SEARCH_LOCATION, isFolder ? folder.Text() : DeviceDisplayName());
}

void FileSearch::FollowDateBox() {
    for (const int box : dateBoxes)
        EnableWindow(Control(box), IsChecked(IDC_SEARCH_DATE));
    const bool between = SelectionOf(IDC_SEARCH_DATE_MODE) == betweenEntry;
    ShowWindow(Control(IDC_SEARCH_LAST_DAY), between ? SW_SHOW : SW_HIDE);
}

void FileSearch::FollowSizeBox() {
    for (const int box : sizeBoxes)
        EnableWindow(Control(box), IsChecked(IDC_SEARCH_SIZE));
}

void FileSearch::OnExplorer() {
    FolderChooserRequest choice;
    choice.folder = ReadLocation();
    if (ChooseFolder(L"File Search", choice, Window())) {
        ShowLocation(choice.folder);
        SetFocus(Control(IDC_SEARCH_LOCATION));
    }
    if (choice.changed)
        appState.fileList.GoToFolder(appState.fileList.CurrentFolder().View(), treeRescan);
}

void FileSearch::BeginSearch() {
    ce::SipShowIM(SIPF_OFF);
    wait_.emplace();
    appState.fileList.searchResults.Clear();
    ReadCriteria(criteria_);
    run_.emplace(criteria_, appState.fileList.searchResults);
    SetTimer(Window(), searchTimer, searchPause, nullptr);
    SearchOn(firstStep);
}

void FileSearch::SearchOn(DWORD milliseconds) {
    if (run_ && !run_->RunFor(milliseconds)) {
        run_.reset();
        End(1);
    }
}

void FileSearch::ReadCriteria(SearchCriteria& criteria) const {
    const auto read = [&](int id, auto& text) {
        return GetDlgItemTextW(Window(), id, text.data(), static_cast<int>(text.size()));
    };
    const UINT nameLength = read(IDC_SEARCH_NAME, criteria.name);
    FoldCase({criteria.name.data(), nameLength});
    read(IDC_SEARCH_TEXT, criteria.text);
    criteria.caseSensitive = IsChecked(IDC_SEARCH_CASE);
    criteria.location = ReadLocation();
    criteria.subfolders = IsChecked(IDC_SEARCH_SUBFOLDERS);

    criteria.dateMode = DateModeOf(IsChecked(IDC_SEARCH_DATE), SelectionOf(IDC_SEARCH_DATE_MODE));
    criteria.firstDay = ReadDay(IDC_SEARCH_FIRST_DAY);
    criteria.lastDay = ReadDay(IDC_SEARCH_LAST_DAY);

    criteria.sizeMode = SizeModeOf(IsChecked(IDC_SEARCH_SIZE), SelectionOf(IDC_SEARCH_SIZE_MODE));
    std::array<wchar_t, 32> number{};
    read(IDC_SEARCH_KILOBYTES, number);
    criteria.sizeKB = static_cast<std::int32_t>(_wtol(number.data()));
}

Path FileSearch::ReadLocation() const {
    std::array<wchar_t, pathCapacity + 1> text{}; // one more than a path can have tells what is too long
    GetDlgItemTextW(Window(), IDC_SEARCH_LOCATION, text.data(), static_cast<int>(text.size()));
    return LocationOf(text.data());
}

DayKey FileSearch::ReadDay(int picker) const {
    SYSTEMTIME day{};
    SendMessageW(Control(picker), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&day));
    return DayOf(day);
}

bool FileSearch::IsChecked(int box) const {
    return SendMessageW(Control(box), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

int FileSearch::SelectionOf(int list) const {
    return static_cast<int>(SendMessageW(Control(list), CB_GETCURSEL, 0, 0));
}
