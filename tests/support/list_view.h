#pragma once
// The file list as one sees it: rows, columns, selection, style.

#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

/// Texts in the order they are shown.
using Texts = std::vector<std::wstring>;

class ListView {
  public:
    explicit ListView(HWND window) : window_(window) {}
    HWND Window() const { return window_; }

    int Count() const;
    /// The first column of every row.
    Texts Names() const;
    std::wstring Text(int row, int column = 0) const;
    /// All columns of a row.
    Texts Row(int row) const;
    /// All columns of the row with this name; the test ends by exception when there is none.
    Texts Row(const std::wstring& name) const;
    /// The row with this name, or -1.
    int Find(const std::wstring& name) const;
    bool Has(const std::wstring& name) const { return Find(name) >= 0; }

    Texts SelectedNames() const;
    /// The name with the focus rectangle; empty when no row has it.
    std::wstring FocusedName() const;
    bool IsSelected(int row) const;
    int Image(int row) const;
    /// The state bits (LVIS_...) of a row.
    UINT State(int row) const;
    /// Whether the row lies wholly inside the list's window.
    bool InView(int row) const;

    /// LVS_ICON, LVS_REPORT, LVS_SMALLICON or LVS_LIST.
    DWORD ViewStyle() const;
    DWORD Style() const;
    DWORD ExtendedStyle() const;
    bool HasHeader() const;

    int ColumnCount() const;
    int ColumnWidth(int column) const;
    void SetColumnWidth(int column, int width);
    std::wstring ColumnTitle(int column) const;
    /// LVCFMT_LEFT or LVCFMT_RIGHT.
    int ColumnAlignment(int column) const;
    /// Where to click a column's title, on the screen.
    POINT ColumnTitlePoint(int column) const;

    /// Where to click a row, on the screen: its label. The row is scrolled into view first.
    POINT PointOf(const std::wstring& name) const;
    POINT PointOf(int row) const;
    /// A place in the list's window where no row is, on the screen.
    POINT EmptyPoint() const;

    /// Makes this the only selected row, with the focus rectangle.
    void Select(const std::wstring& name);
    /// Selects a row besides those that are.
    void AddToSelection(const std::wstring& name);
    void SelectNothing();

    /// The edit field of a name being edited, or null.
    HWND NameEditor() const;

  private:
    void SetState(int row, UINT state, UINT mask);
    std::wstring TextBy(class RemoteMemory& memory, int row, int column) const;
    int RequireRow(const std::wstring& name) const;
    RECT RowPlace(int row, int part) const;

    HWND window_;
};
