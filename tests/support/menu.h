#pragma once
// Menus as one sees them: texts, order, what is greyed and checked.

#include <string>
#include <vector>

#include <windows.h>

struct MenuItem {
    std::wstring text; // empty for a separator
    UINT id = 0;
    bool separator = false;
    bool enabled = true;
    bool checked = false;
    bool radioChecked = false;
    bool popup = false;
    std::vector<MenuItem> items; // of a popup
};

/// A menu at one moment.
class Menu {
  public:
    Menu() = default;
    explicit Menu(std::vector<MenuItem> items) : items_(std::move(items)) {}

    const std::vector<MenuItem>& Items() const { return items_; }
    /// The texts of the top items in order, "-" for a separator.
    std::vector<std::wstring> Texts() const;
    /// The popup inside, named by its text; the test ends by exception when there is none.
    Menu Popup(const std::wstring& text) const;
    bool HasPopup(const std::wstring& text) const;

    /// An item at any depth by its command. The test ends by exception when there is none.
    const MenuItem& Item(UINT command) const;
    /// An item of this menu itself by its text.
    const MenuItem& Item(const std::wstring& text) const;
    bool Has(UINT command) const;
    bool IsEnabled(UINT command) const { return Item(command).enabled; }
    bool IsChecked(UINT command) const { return Item(command).checked; }
    /// The commands that are enabled, at any depth, in order.
    std::vector<UINT> EnabledCommands() const;
    std::vector<UINT> CheckedCommands() const;
    /// The texts of this menu's own items that are checked, in order.
    std::vector<std::wstring> CheckedTexts() const;

  private:
    std::vector<MenuItem> items_;
};

/// Reads a menu that belongs to the program of `window`, with all its popups.
Menu ReadMenu(HWND window, HMENU menu);

/// The windows of the popup menus that a process has open on the screen, the innermost last.
std::vector<HWND> OpenPopups(DWORD process);
/// The menu that such a window shows; null when it has just closed.
HMENU MenuOf(HWND popup);
