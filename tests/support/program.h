#pragma once
// The program under test, started and driven from outside like a person or another program would.

#include <chrono>
#include <string>
#include <vector>

#include <windows.h>

#include "tests/support/dialog.h"
#include "tests/support/list_view.h"
#include "tests/support/menu.h"
#include "tests/support/status_bar.h"
#include "tests/support/tree_view.h"

class Program {
  public:
    Program() = default;
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    /// Ends the program if it still runs.
    ~Program();

    // --- Life ---

    /// Starts the program and waits until it shows its first folder and is idle.
    void Start(const std::wstring& commandLine = L"");
    /// Starts a further copy, waits for its end and returns its exit code.
    static DWORD StartAgain(const std::wstring& commandLine = L"");
    /// Closes the main window as the system does and waits for the program's end. Settings are saved.
    void Close();
    /// Ends the program from outside; it gets no chance to save.
    void Kill();
    /// Close and Start.
    void Restart(const std::wstring& commandLine = L"");
    bool IsRunning() const;
    /// Ends by exception while the program runs.
    DWORD ExitCode() const;
    void WaitForEnd();
    DWORD ProcessId() const { return processId_; }
    HANDLE Process() const { return process_; }

    // --- What is on the screen ---

    HWND Window() const { return window_; }
    ListView List() const;
    TreeView Tree() const;
    StatusBar Status() const;
    /// The address bar's combo box; its text is what stands in the edit field.
    Control AddressBar() const;
    bool AddressBarIsShown() const;
    bool AddressBarHasFocus() const { return IsChild(AddressBar().Window(), Focus()) != 0; }
    /// The folder that is shown, as the address bar names it, shown or not; the root is "My PocketPC".
    std::wstring Folder() const { return AddressBar().Text(); }
    bool TreeIsShown() const;
    /// The window that has the keyboard.
    HWND Focus() const;
    bool ListHasFocus() const { return Focus() == List().Window(); }
    bool TreeHasFocus() const { return Focus() == Tree().Window(); }
    /// Whether the main window has the stylus for itself, as while something is dragged.
    bool HoldsStylus() const;
    bool IsInFront() const { return GetForegroundWindow() == window_; }

    /// The right soft key's menu, its states brought up to date as for opening it.
    Menu SoftKeyMenu() const;
    std::vector<std::wstring> SoftKeys() const;
    bool MenuIsOpen() const { return !OpenPopups(processId_).empty(); }
    /// Waits for a popup menu on the screen and reads the innermost.
    Menu WaitForMenu() const;
    void CloseMenus();

    /// Waits for a dialog with this title.
    Dialog WaitForDialog(const std::wstring& title) const;
    /// Waits for a dialog that opens over another one.
    Dialog WaitForDialogOver(const Dialog& below) const;
    bool HasDialog() const { return !DialogsOf(processId_).empty(); }
    MessageBoxShown WaitForMessageBox() const;
    bool HasMessageBox() const { return !MessageBoxesOf(processId_).empty(); }

    // --- Driving it ---

    /// Gives a command and waits until it is carried out. For commands that open no dialog.
    void Command(UINT command);
    /// Gives a command and goes on at once.
    void PostCommand(UINT command);
    /// Goes where a copy of the program that was given this folder would have it go; the empty text is the
    /// root.
    void HandOverFolder(const std::wstring& folder);
    /// Puts a folder into the address bar, presses Enter there and waits for the folder.
    void GoByAddressBar(const std::wstring& folder);
    /// Finds what is named so inside a folder, through the dialog, and waits until the results are shown.
    void Search(const std::wstring& name, const std::wstring& folder);
    /// Sends WM_COPYDATA with any content; `size` bytes are announced and really there.
    LRESULT SendCopyData(ULONG_PTR code, const void* data, DWORD size);
    /// Waits until the program has worked off everything sent and posted to it so far.
    void WaitUntilIdle() const;
    void WaitForFolder(const std::wstring& folder) const;
    void WaitForListFocus() const;
    /// Waits until the list shows exactly these names, in this order.
    void WaitForNames(const Texts& names) const;

  private:
    void FindWindows();
    HWND Child(const wchar_t* className) const;
    GUITHREADINFO Input() const;

    HANDLE process_ = nullptr;
    DWORD processId_ = 0;
    DWORD threadId_ = 0;
    HWND window_ = nullptr;
};
