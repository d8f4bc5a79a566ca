#pragma once
// Dialogs and message boxes of the program, and the controls on them.

#include <string>
#include <vector>

#include <windows.h>

#include "tests/support/menu.h"

/// One control, or any window, by its handle.
class Control {
  public:
    explicit Control(HWND window) : window_(window) {}
    HWND Window() const { return window_; }
    bool Exists() const { return window_ && IsWindow(window_); }

    std::wstring Text() const;
    /// Sets the text as typing would: the parent is told of the change.
    void SetText(const std::wstring& text);
    bool IsEnabled() const { return IsWindowEnabled(window_); }
    bool IsShown() const { return IsWindowVisible(window_); }
    bool IsChecked() const;
    /// Clicks a button, check box or radio button. Does not wait for what the click starts.
    void Click();
    RECT Place() const;

    // Combo boxes
    std::vector<std::wstring> Entries() const;
    int SelectedEntry() const;
    /// Picks an entry of the list and tells the parent as a person's pick does.
    void PickEntry(int index);

  private:
    void NotifyParent(UINT code) const;

    HWND window_;
};

class Dialog {
  public:
    explicit Dialog(HWND window) : window_(window) {}
    HWND Window() const { return window_; }
    bool IsOpen() const { return IsWindow(window_) && IsWindowVisible(window_); }

    std::wstring Title() const;
    RECT Place() const;
    bool Has(int id) const { return GetDlgItem(window_, id) != nullptr; }
    /// The control with this number; the test ends by exception when there is none.
    Control Item(int id) const;
    /// All the texts on the dialog, in the order of its controls, empty ones left out.
    std::vector<std::wstring> TextsShown() const;

    /// The texts on its soft keys.
    std::vector<std::wstring> SoftKeys() const;
    /// The menu of its soft key, as it stands.
    Menu SoftKeyMenu() const;
    /// Gives the dialog a command, as its soft keys and buttons do. Does not wait for what it starts.
    void Command(int id);
    /// Marks a check box, or takes its mark away, by a click.
    void Mark(int box, bool marked = true);
    void WaitUntilClosed();

  private:
    HWND window_;
};

/// A message box that is up.
class MessageBoxShown {
  public:
    explicit MessageBoxShown(HWND window) : window_(window) {}
    std::wstring Text() const;
    std::wstring Caption() const;
    /// The numbers of its buttons: IDOK, IDYES and so on, from the left.
    std::vector<int> Buttons() const;
    HWND Owner() const { return GetWindow(window_, GW_OWNER); }
    /// The field that scrolls a text which is too long for the screen; null when it is not.
    HWND ScrolledText() const { return FindWindowExW(window_, nullptr, L"Edit", nullptr); }
    /// Presses a button and waits until the box is gone.
    void Answer(int button);

  private:
    HWND window_;
};

/// Whether a dialog window is a message box.
bool IsMessageBox(HWND window);

/// The dialogs of a process on the screen, message boxes left out, the topmost first.
std::vector<HWND> DialogsOf(DWORD process);
std::vector<HWND> MessageBoxesOf(DWORD process);
