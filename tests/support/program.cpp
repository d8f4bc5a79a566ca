#include "tests/support/program.h"

#include <stdexcept>

#include "resources/resource.h"
#include "tests/support/input.h"
#include "tests/support/live_window.h"
#include "tests/support/soft_keys.h"
#include "tests/support/text.h"
#include "tests/support/waiting.h"

namespace {

constexpr wchar_t executable[] = L"E:\\Program Files\\Tarvik File Manager\\TarvikFileManager.exe";
constexpr wchar_t mainWindowClass[] = L"Tarvik File ManagerPLUSUNI";
constexpr DWORD startPatience = 30000; // milliseconds
constexpr DWORD endPatience = 10000;

PROCESS_INFORMATION StartProcess(const std::wstring& commandLine) {
    std::wstring line = L"\"" + std::wstring(executable) + L"\"";
    if (!commandLine.empty())
        line += L" " + commandLine;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(executable, line.data(), nullptr, nullptr, FALSE, 0, nullptr, L"E:\\", &startup,
                        &started))
        throw std::runtime_error("the program does not start: error " + std::to_string(GetLastError()));
    CloseHandle(started.hThread);
    return started;
}

std::string Joined(const Texts& texts) {
    std::string joined;
    for (const std::wstring& text : texts)
        joined += (joined.empty() ? "" : ", ") + Narrow(text);
    return joined;
}

} // namespace

Program::~Program() {
    Kill();
}

void Program::Start(const std::wstring& commandLine) {
    Kill();
    const PROCESS_INFORMATION started = StartProcess(commandLine);
    process_ = started.hProcess;
    processId_ = started.dwProcessId;
    threadId_ = started.dwThreadId;
    FindWindows();
}

void Program::FindWindows() {
    WaitFor(
        "for the program's window",
        [&] {
            if (!IsRunning())
                throw std::runtime_error("the program ended while it started, with code " +
                                         std::to_string(ExitCode()));
            for (HWND window : TopWindowsOf(processId_))
                if (ClassOf(window) == mainWindowClass)
                    window_ = window;
            return window_ && IsWindowVisible(window_) && ChildOfClass(window_, WC_LISTVIEWW);
        },
        startPatience);
    WaitForInputIdle(process_, startPatience);
    WaitUntilIdle();
}

DWORD Program::StartAgain(const std::wstring& commandLine) {
    const PROCESS_INFORMATION started = StartProcess(commandLine);
    const DWORD waited = WaitForSingleObject(started.hProcess, endPatience);
    DWORD code = 0;
    GetExitCodeProcess(started.hProcess, &code);
    if (waited != WAIT_OBJECT_0)
        TerminateProcess(started.hProcess, 1);
    CloseHandle(started.hProcess);
    if (waited != WAIT_OBJECT_0)
        throw std::runtime_error("the second copy does not end");
    return code;
}

void Program::Close() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    WaitForEnd();
}

void Program::WaitForEnd() {
    if (WaitForSingleObject(process_, endPatience) != WAIT_OBJECT_0)
        throw std::runtime_error("the program does not end");
    window_ = nullptr;
}

void Program::Kill() {
    if (!process_)
        return;
    TerminateProcess(process_, 0);
    WaitForSingleObject(process_, endPatience);
    CloseHandle(process_);
    process_ = nullptr;
    window_ = nullptr;
}

void Program::Restart(const std::wstring& commandLine) {
    Close();
    Start(commandLine);
}

bool Program::IsRunning() const {
    return process_ && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

DWORD Program::ExitCode() const {
    if (IsRunning())
        throw std::runtime_error("the program still runs");
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    return code;
}

HWND Program::Child(const wchar_t* className) const {
    const HWND child = ChildOfClass(window_, className);
    if (!child)
        throw std::runtime_error("the main window has no " + Narrow(className));
    return child;
}

ListView Program::List() const {
    return ListView(Child(WC_LISTVIEWW));
}
TreeView Program::Tree() const {
    return TreeView(Child(WC_TREEVIEWW));
}
StatusBar Program::Status() const {
    return StatusBar(Child(STATUSCLASSNAMEW));
}
Control Program::AddressBar() const {
    return Control(Child(L"ComboBox"));
}
bool Program::AddressBarIsShown() const {
    return IsWindowVisible(AddressBar().Window());
}
bool Program::TreeIsShown() const {
    return IsWindowVisible(Tree().Window());
}

GUITHREADINFO Program::Input() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(threadId_, &info);
    return info;
}

HWND Program::Focus() const {
    return Input().hwndFocus;
}

bool Program::HoldsStylus() const {
    return Input().hwndCapture == window_;
}

Menu Program::SoftKeyMenu() const {
    const HMENU menu = SoftKeyPopup(window_, IDM_SOFTKEY_MENU);
    if (!menu)
        throw std::runtime_error("the soft key has no menu");
    Ask(window_, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu));
    return ReadMenu(window_, menu);
}

std::vector<std::wstring> Program::SoftKeys() const {
    return SoftKeyTexts(window_);
}

Menu Program::WaitForMenu() const {
    HMENU menu = nullptr;
    WaitFor("for a menu to open", [&] {
        const std::vector<HWND> popups = OpenPopups(processId_);
        menu = popups.empty() ? nullptr : MenuOf(popups.back());
        return menu != nullptr;
    });
    return ReadMenu(window_, menu);
}

void Program::CloseMenus() {
    Ask(window_, WM_CANCELMODE);
    WaitFor("for the menus to close", [&] { return !MenuIsOpen(); });
}

Dialog Program::WaitForDialog(const std::wstring& title) const {
    HWND dialog = nullptr;
    WaitFor("for the dialog \"" + Narrow(title) + "\"", [&] {
        for (HWND window : DialogsOf(processId_))
            if (TextOf(window) == title)
                dialog = window;
        return dialog != nullptr;
    });
    return Dialog(dialog);
}

Dialog Program::WaitForDialogOver(const Dialog& below) const {
    HWND front = nullptr;
    WaitFor("for a dialog over \"" + Narrow(below.Title()) + "\"", [&] {
        const std::vector<HWND> dialogs = DialogsOf(processId_);
        front = dialogs.empty() ? nullptr : dialogs.front();
        return front && front != below.Window() && GetForegroundWindow() == front && Focus();
    });
    return Dialog(front);
}

MessageBoxShown Program::WaitForMessageBox() const {
    WaitFor("for a message box", [&] { return HasMessageBox(); });
    return MessageBoxShown(MessageBoxesOf(processId_).front());
}

void Program::Command(UINT command) {
    Ask(window_, WM_COMMAND, command);
}

void Program::PostCommand(UINT command) {
    PostMessageW(window_, WM_COMMAND, command, 0);
}

void Program::HandOverFolder(const std::wstring& folder) {
    constexpr ULONG_PTR openFolder = 563;
    const std::wstring path = folder.empty() ? L"\\" : folder;
    SendCopyData(openFolder, path.c_str(), static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
}

void Program::GoByAddressBar(const std::wstring& folder) {
    AddressBar().SetText(folder);
    PostKey(FindWindowExW(AddressBar().Window(), nullptr, L"Edit", nullptr), VK_RETURN);
    WaitUntilIdle(); // the bar's text alone would tell of the folder before it is shown
    WaitForFolder(folder);
}

void Program::Search(const std::wstring& name, const std::wstring& folder) {
    PostCommand(IDM_FILE_SEARCH);
    Dialog criteria = WaitForDialog(L"File Search");
    criteria.Item(IDC_SEARCH_NAME).SetText(name);
    criteria.Item(IDC_SEARCH_LOCATION).SetText(folder);
    criteria.Command(IDM_SEARCH_OK);
    criteria.WaitUntilClosed();
    WaitForFolder(L"File Search");
    WaitUntilIdle();
}

LRESULT Program::SendCopyData(ULONG_PTR code, const void* data, DWORD size) {
    COPYDATASTRUCT copy{code, size, const_cast<void*>(data)};
    return Ask(window_, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&copy));
}

void Program::WaitUntilIdle() const {
    // Posted messages are worked off in turn, so a posted mark that has arrived says that all before it have.
    // The list's hover time serves as the mark; the program has no use for it.
    // A dialog that ends at that moment may swallow the mark: then another one is set.
    constexpr int markPatience = 500; // milliseconds
    static LPARAM mark = 100000;
    const HWND list = List().Window();
    WaitFor("for the program to become idle", [&] {
        PostMessageW(list, LVM_SETHOVERTIME, 0, ++mark);
        return HoldsWithin(markPatience, [&] { return Ask(list, LVM_GETHOVERTIME) == mark; });
    });
}

void Program::WaitForFolder(const std::wstring& folder) const {
    if (!Eventually([&] { return Folder() == folder; }))
        throw std::runtime_error("waited in vain for the folder " + Narrow(folder) + ", there is " +
                                 Narrow(Folder()));
}

void Program::WaitForListFocus() const {
    WaitFor("for the list to have the keyboard", [&] { return ListHasFocus(); });
}

void Program::WaitForNames(const Texts& names) const {
    if (!Eventually([&] { return List().Names() == names; }))
        throw std::runtime_error("waited in vain for the list to show: " + Joined(names) +
                                 "\n                     it shows: " + Joined(List().Names()));
}
