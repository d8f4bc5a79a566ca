#include "filelist/rows.h"

#include <vector>

#include "filelist/view_styles.h"

namespace {

/// Rows from which on the way they are added matters.
constexpr std::size_t manyRows = 1000;

constexpr UINT markStates = LVIS_SELECTED | LVIS_FOCUSED | LVIS_CUT | LVIS_DROPHILITED;

constexpr int lastColumn = 3;

/// Inserts or sets a row, as `message` says.
void PutRow(HWND view, UINT message, int index, FileItem& item, UINT marks) {
    item.row = index;
    LVITEMW row{};
    row.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
    row.iItem = index;
    row.iImage = I_IMAGECALLBACK;
    row.lParam = reinterpret_cast<LPARAM>(&item);
    row.pszText = item.kind == ItemKind::UpLevel ? item.name.get() : LPSTR_TEXTCALLBACKW;
    row.state = marks;
    row.stateMask = markStates;
    SendMessageW(view, message, 0, reinterpret_cast<LPARAM>(&row));
}

void AppendRow(HWND view, int index, FileItem& item) {
    PutRow(view, LVM_INSERTITEMW, index, item, 0);
    LVITEMW cell{};
    cell.pszText = LPSTR_TEXTCALLBACKW;
    for (cell.iSubItem = 1; cell.iSubItem <= lastColumn; ++cell.iSubItem)
        SendMessageW(view, LVM_SETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&cell));
}

std::size_t RowCount(HWND view) {
    return static_cast<std::size_t>(SendMessageW(view, LVM_GETITEMCOUNT, 0, 0));
}

/// Takes rows out at the end until `wanted` are left.
void CutRows(HWND view, std::size_t wanted) {
    std::size_t count = RowCount(view);
    if (wanted < count / 2) {
        SendMessageW(view, LVM_DELETEALLITEMS, 0, 0);
        return;
    }
    while (count > wanted)
        SendMessageW(view, LVM_DELETEITEM, --count, 0);
}

/// Has the view in the report style while many rows are added: the icon styles give each new row a place at
/// once, and many places cost more than the rows.
class FillingStyle {
  public:
    FillingStyle(HWND view, std::size_t added)
        : view_(view), style_(static_cast<DWORD>(GetWindowLongW(view, GWL_STYLE))) {
        const DWORD type = style_ & LVS_TYPEMASK;
        changed_ = added >= manyRows && (type == LVS_ICON || type == LVS_SMALLICON);
        if (changed_)
            SetViewStyle(view_,
                         (style_ & ~static_cast<DWORD>(LVS_TYPEMASK)) | LVS_REPORT | LVS_NOCOLUMNHEADER);
    }
    FillingStyle(const FillingStyle&) = delete;
    FillingStyle& operator=(const FillingStyle&) = delete;
    ~FillingStyle() {
        if (changed_)
            SetViewStyle(view_, style_);
    }

  private:
    HWND view_;
    DWORD style_;
    bool changed_ = false;
};

} // namespace

void ShowRows(HWND view, std::span<FileItem* const> items) {
    CutRows(view, items.size());
    const std::size_t kept = RowCount(view);
    for (std::size_t row = 0; row < kept; ++row)
        PutRow(view, LVM_SETITEMW, static_cast<int>(row), *items[row], 0);
    // Where a range of selected rows would begin.
    SendMessageW(view, LVM_SETSELECTIONMARK, 0, -1);

    {
        const FillingStyle filling(view, items.size() - kept);
        for (std::size_t row = kept; row < items.size(); ++row)
            AppendRow(view, static_cast<int>(row), *items[row]);
    }
    // In the icon styles rows that stayed and rows that came stand in one order only now.
    SendMessageW(view, LVM_ARRANGE, LVA_DEFAULT, 0);
}

void ReorderRows(HWND view, std::span<FileItem* const> items) {
    std::vector<UINT> marks;
    marks.reserve(items.size());
    for (std::size_t row = 0; row < items.size(); ++row)
        marks.push_back(static_cast<UINT>(SendMessageW(view, LVM_GETITEMSTATE, row, markStates)));
    for (std::size_t row = 0; row < items.size(); ++row) {
        FileItem& item = *items[row];
        PutRow(view, LVM_SETITEMW, static_cast<int>(row), item, marks[static_cast<std::size_t>(item.row)]);
    }
}
