#include "tests/support/dialog.h"

#include <algorithm>
#include <stdexcept>

#include <commctrl.h>

#include "resources/resource.h"
#include "tests/support/live_window.h"
#include "tests/support/soft_keys.h"
#include "tests/support/waiting.h"

namespace {

// A message box's text is a control with one of these numbers.
constexpr int messageTextIds[] = {100, 0xFFFF};

HWND MessageTextControl(HWND box) {
    for (const int id : messageTextIds)
        for (HWND child : ChildrenOf(box))
            if (GetDlgCtrlID(child) == id && ClassOf(child) == L"Static")
                return child;
    return nullptr;
}

/// Where a message box scrolls a text that is too long.
bool IsTextToRead(HWND window) {
    return ClassOf(window) == L"Edit" && (GetWindowLongW(window, GWL_STYLE) & ES_READONLY) != 0;
}

bool IsButton(HWND window) {
    return ClassOf(window) == L"Button";
}

std::vector<HWND> DialogWindowsOf(DWORD process, bool messageBoxes) {
    std::vector<HWND> windows = TopWindowsOf(process);
    std::erase_if(windows, [messageBoxes](HWND window) {
        return ClassOf(window) != L"#32770" || !IsWindowVisible(window) ||
               IsMessageBox(window) != messageBoxes;
    });
    return windows;
}

} // namespace

std::wstring Control::Text() const {
    return TextOf(window_);
}

void Control::SetText(const std::wstring& text) {
    Ask(window_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    if (ClassOf(window_) == L"ComboBox")
        NotifyParent(CBN_EDITCHANGE);
}

void Control::NotifyParent(UINT code) const {
    Ask(GetParent(window_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window_), code),
        reinterpret_cast<LPARAM>(window_));
}

bool Control::IsChecked() const {
    return Ask(window_, BM_GETCHECK) == BST_CHECKED;
}

void Control::Click() {
    PostMessageW(window_, BM_CLICK, 0, 0);
}

RECT Control::Place() const {
    return PlaceOf(window_);
}

std::vector<std::wstring> Control::Entries() const {
    std::vector<std::wstring> entries;
    for (LRESULT index = 0, count = Ask(window_, CB_GETCOUNT); index < count; ++index) {
        const LRESULT length = Ask(window_, CB_GETLBTEXTLEN, index);
        if (length == CB_ERR) // it is being filled anew
            return {};
        // With room for another text that has taken its place.
        std::wstring text(length + MAX_PATH, L'\0');
        text.resize(
            std::max<LRESULT>(0, Ask(window_, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()))));
        entries.push_back(text);
    }
    return entries;
}

int Control::SelectedEntry() const {
    return static_cast<int>(Ask(window_, CB_GETCURSEL));
}

void Control::PickEntry(int index) {
    Ask(window_, CB_SETCURSEL, index);
    NotifyParent(CBN_SELENDOK);
    NotifyParent(CBN_SELCHANGE);
}

std::wstring Dialog::Title() const {
    return TextOf(window_);
}

RECT Dialog::Place() const {
    return PlaceOf(window_);
}

Control Dialog::Item(int id) const {
    const HWND control = GetDlgItem(window_, id);
    if (!control)
        throw std::runtime_error("the dialog has no control " + std::to_string(id));
    return Control(control);
}

std::vector<std::wstring> Dialog::TextsShown() const {
    std::vector<std::wstring> texts;
    for (HWND child : ChildrenOf(window_))
        if (IsWindowVisible(child))
            if (const std::wstring text = TextOf(child); !text.empty())
                texts.push_back(text);
    return texts;
}

std::vector<std::wstring> Dialog::SoftKeys() const {
    return SoftKeyTexts(window_);
}

Menu Dialog::SoftKeyMenu() const {
    return ReadMenu(window_, SoftKeyPopup(window_, IDM_SOFTKEY_MENU));
}

void Dialog::Command(int id) {
    PostMessageW(window_, WM_COMMAND, id, 0);
}

void Dialog::Mark(int box, bool marked) {
    Control control = Item(box);
    if (control.IsChecked() == marked)
        return;
    control.Click();
    WaitFor("for a box to change", [&] { return control.IsChecked() == marked; });
}

void Dialog::WaitUntilClosed() {
    WaitFor("for a dialog to close", [&] { return !IsWindow(window_); });
}

std::wstring MessageBoxShown::Text() const {
    const HWND text = MessageTextControl(window_);
    return text ? TextOf(text) : std::wstring();
}

std::wstring MessageBoxShown::Caption() const {
    return TextOf(window_);
}

std::vector<int> MessageBoxShown::Buttons() const {
    std::vector<HWND> buttons = ChildrenOf(window_);
    std::erase_if(buttons, [](HWND child) { return !IsButton(child) || !IsWindowVisible(child); });
    std::sort(buttons.begin(), buttons.end(),
              [](HWND a, HWND b) { return PlaceOf(a).left < PlaceOf(b).left; });
    std::vector<int> ids;
    for (HWND button : buttons)
        ids.push_back(GetDlgCtrlID(button));
    return ids;
}

void MessageBoxShown::Answer(int button) {
    PostMessageW(window_, WM_COMMAND, button, 0);
    WaitFor("for a message box to go", [&] { return !IsWindow(window_); });
}

bool IsMessageBox(HWND window) {
    // It has nothing but texts and buttons, among them buttons that it does not show; a long text is
    // scrolled.
    const std::vector<HWND> children = ChildrenOf(window);
    return ClassOf(window) == L"#32770" && MessageTextControl(window) &&
           std::ranges::any_of(children, IsButton) && std::ranges::all_of(children, [](HWND child) {
               return IsButton(child) || ClassOf(child) == L"Static" || IsTextToRead(child);
           });
}

std::vector<HWND> DialogsOf(DWORD process) {
    return DialogWindowsOf(process, false);
}
std::vector<HWND> MessageBoxesOf(DWORD process) {
    return DialogWindowsOf(process, true);
}
