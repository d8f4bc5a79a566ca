#include "tests/support/list_view.h"

#include <algorithm>
#include <stdexcept>

#include "tests/support/live_window.h"
#include "tests/support/text.h"

namespace {

constexpr int textCapacity = 520;

/// An item or column structure with room for its text behind it, in the program's memory.
template <class Structure>
struct WithText {
    Structure head;
    wchar_t text[textCapacity];
};

} // namespace

int ListView::Count() const {
    return static_cast<int>(Ask(window_, LVM_GETITEMCOUNT));
}

std::wstring ListView::TextBy(RemoteMemory& memory, int row, int column) const {
    constexpr std::size_t textAt = sizeof(LVITEMW);
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<wchar_t*>(memory.Address() + textAt);
    item.cchTextMax = textCapacity;
    memory.Write(&item, sizeof(item));
    constexpr wchar_t noText = L'\0'; // what stays when the row has gone meanwhile
    memory.Write(&noText, sizeof(noText), textAt);
    Ask(window_, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(memory.Address()));
    return memory.ReadText(textAt);
}

std::wstring ListView::Text(int row, int column) const {
    RemoteMemory memory(window_, sizeof(WithText<LVITEMW>));
    return TextBy(memory, row, column);
}

Texts ListView::Names() const {
    Texts names;
    RemoteMemory memory(window_, sizeof(WithText<LVITEMW>));
    for (int row = 0, count = Count(); row < count; ++row)
        names.push_back(TextBy(memory, row, 0));
    return names;
}

Texts ListView::Row(int row) const {
    Texts texts;
    for (int column = 0; column < ColumnCount(); ++column)
        texts.push_back(Text(row, column));
    return texts;
}

Texts ListView::Row(const std::wstring& name) const {
    return Row(RequireRow(name));
}

int ListView::Find(const std::wstring& name) const {
    RemoteMemory memory(window_, sizeof(WithText<LVITEMW>));
    for (int row = 0, count = Count(); row < count; ++row)
        if (TextBy(memory, row, 0) == name)
            return row;
    return -1;
}

int ListView::RequireRow(const std::wstring& name) const {
    const int row = Find(name);
    if (row < 0)
        throw std::runtime_error("the list has no row \"" + Narrow(name) + "\"");
    return row;
}

UINT ListView::State(int row) const {
    return static_cast<UINT>(Ask(window_, LVM_GETITEMSTATE, row, LVIS_SELECTED | LVIS_FOCUSED | LVIS_CUT));
}

bool ListView::IsSelected(int row) const {
    return (State(row) & LVIS_SELECTED) != 0;
}

Texts ListView::SelectedNames() const {
    Texts names;
    for (int row = -1; (row = static_cast<int>(Ask(window_, LVM_GETNEXTITEM, row, LVNI_SELECTED))) >= 0;)
        names.push_back(Text(row));
    return names;
}

std::wstring ListView::FocusedName() const {
    const int row = static_cast<int>(Ask(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    return row < 0 ? std::wstring() : Text(row);
}

int ListView::Image(int row) const {
    RemoteMemory memory(window_, sizeof(LVITEMW));
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    memory.Write(&item, sizeof(item));
    Ask(window_, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(&item, sizeof(item));
    return item.iImage;
}

DWORD ListView::Style() const {
    return StyleOf(window_);
}
DWORD ListView::ViewStyle() const {
    return Style() & LVS_TYPEMASK;
}
DWORD ListView::ExtendedStyle() const {
    return static_cast<DWORD>(Ask(window_, LVM_GETEXTENDEDLISTVIEWSTYLE));
}

bool ListView::HasHeader() const {
    const HWND header = reinterpret_cast<HWND>(Ask(window_, LVM_GETHEADER));
    return ViewStyle() == LVS_REPORT && header && IsWindowVisible(header);
}

int ListView::ColumnCount() const {
    const HWND header = reinterpret_cast<HWND>(Ask(window_, LVM_GETHEADER));
    return header ? static_cast<int>(Ask(header, HDM_GETITEMCOUNT)) : 0;
}

int ListView::ColumnWidth(int column) const {
    return static_cast<int>(Ask(window_, LVM_GETCOLUMNWIDTH, column));
}

void ListView::SetColumnWidth(int column, int width) {
    Ask(window_, LVM_SETCOLUMNWIDTH, column, width);
}

std::wstring ListView::ColumnTitle(int column) const {
    constexpr std::size_t textAt = sizeof(LVCOLUMNW);
    RemoteMemory memory(window_, sizeof(WithText<LVCOLUMNW>));
    LVCOLUMNW info{};
    info.mask = LVCF_TEXT;
    info.pszText = reinterpret_cast<wchar_t*>(memory.Address() + textAt);
    info.cchTextMax = textCapacity;
    memory.Write(&info, sizeof(info));
    Ask(window_, LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(memory.Address()));
    return memory.ReadText(textAt);
}

int ListView::ColumnAlignment(int column) const {
    RemoteMemory memory(window_, sizeof(LVCOLUMNW));
    LVCOLUMNW info{};
    info.mask = LVCF_FMT;
    memory.Write(&info, sizeof(info));
    Ask(window_, LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(&info, sizeof(info));
    return info.fmt & LVCFMT_JUSTIFYMASK;
}

POINT ListView::ColumnTitlePoint(int column) const {
    const RECT header = PlaceOf(reinterpret_cast<HWND>(Ask(window_, LVM_GETHEADER)));
    int left = header.left;
    for (int before = 0; before < column; ++before)
        left += ColumnWidth(before);
    return {left + ColumnWidth(column) / 2, (header.top + header.bottom) / 2};
}

RECT ListView::RowPlace(int row, int part) const {
    RemoteMemory memory(window_, sizeof(RECT));
    RECT place{part, 0, 0, 0};
    memory.Write(&place, sizeof(place));
    Ask(window_, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(&place, sizeof(place));
    MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool ListView::InView(int row) const {
    const RECT place = RowPlace(row, LVIR_LABEL);
    const RECT window = PlaceOf(window_);
    return place.top >= window.top && place.bottom <= window.bottom;
}

POINT ListView::PointOf(const std::wstring& name) const {
    return PointOf(RequireRow(name));
}

POINT ListView::PointOf(int row) const {
    Ask(window_, LVM_ENSUREVISIBLE, row, FALSE);
    return MiddleOf(RowPlace(row, LVIR_LABEL));
}

POINT ListView::EmptyPoint() const {
    RECT inside{};
    GetClientRect(window_, &inside);
    MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&inside), 2);
    LONG below = inside.top;
    for (int row = 0, count = Count(); row < count; ++row)
        below = std::max(below, RowPlace(row, LVIR_BOUNDS).bottom);
    if (below + 4 > inside.bottom)
        throw std::runtime_error("the list has no empty place");
    return {inside.right - 4, (below + inside.bottom) / 2};
}

void ListView::SetState(int row, UINT state, UINT mask) {
    RemoteMemory memory(window_, sizeof(LVITEMW));
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    memory.Write(&item, sizeof(item));
    Ask(window_, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(memory.Address()));
}

void ListView::SelectNothing() {
    SetState(-1, 0, LVIS_SELECTED);
}

void ListView::Select(const std::wstring& name) {
    const int row = RequireRow(name);
    SelectNothing();
    SetState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void ListView::AddToSelection(const std::wstring& name) {
    SetState(RequireRow(name), LVIS_SELECTED, LVIS_SELECTED);
}

HWND ListView::NameEditor() const {
    return reinterpret_cast<HWND>(Ask(window_, LVM_GETEDITCONTROL));
}
