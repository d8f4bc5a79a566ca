#include "benchmarks/bare_list.h"

#include "app/app_state.h"
#include "filelist/view_styles.h"

int WalkFolder(const wchar_t* folder) {
    Path pattern;
    if (!pattern.AssignPattern(folder))
        return 0;
    WIN32_FIND_DATAW found{};
    const HANDLE find = ::FindFirstFileW(pattern.Text(), &found);
    if (find == INVALID_HANDLE_VALUE)
        return 0;
    int count = 0;
    do
        ++count;
    while (::FindNextFileW(find, &found));
    ::FindClose(find);
    return count;
}

BareList::BareList(DWORD style)
    : view_(CreateWindowExW(0, WC_LISTVIEWW, L"", viewBaseStyle | style, 0, 0, 240, 200, appState.mainWindow,
                            nullptr, appState.instance, nullptr)) {
    SendMessageW(view_, WM_SETREDRAW, FALSE, 0);
    for (WPARAM index = 0; index < 4; ++index) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = 50;
        SendMessageW(view_, LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
    }
}

void BareList::Fill(int count) {
    for (int index = 0; index < count; ++index) {
        LVITEMW row{};
        row.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
        row.iItem = index;
        row.iImage = I_IMAGECALLBACK;
        row.pszText = LPSTR_TEXTCALLBACKW;
        SendMessageW(view_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&row));
        for (row.iSubItem = 1; row.iSubItem < 4; ++row.iSubItem)
            SendMessageW(view_, LVM_SETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&row));
    }
}

void BareList::SelectAll() {
    LVITEMW all{};
    all.state = LVIS_SELECTED;
    all.stateMask = LVIS_SELECTED;
    SendMessageW(view_, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&all));
}
