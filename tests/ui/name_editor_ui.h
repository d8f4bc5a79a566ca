#pragma once
// What the suites begin with in which names are edited in the list.

#include <string>
#include <vector>

#include "tests/support/ui_test.h"
#include "tests/ui/name_messages.h"

class NameEditorUi : public UiTest {
  protected:
    void StartIn(const std::wstring& folder) {
        device.Folder(folder);
        program.Start(L"\"" + folder + L"\"");
    }

    ListView List() const { return program.List(); }
    HWND Editor() const { return List().NameEditor(); }
    HWND WaitForEditor() const {
        WaitFor("for the name's editor",
                [&] { return Editor() && IsWindowVisible(Editor()) && program.Focus() == Editor(); });
        return Editor();
    }
    bool EditorIsGone() const {
        return Eventually([&] { return !Editor(); });
    }
    std::wstring TextInEditor() const { return Control(WaitForEditor()).Text(); }

    /// Selects an entry and opens the editor over its name.
    void BeginRename(const std::wstring& shownName) {
        List().Select(shownName);
        program.Command(IDM_FILE_RENAME);
        WaitForEditor();
    }
    /// Puts a name into the open editor and ends with Enter.
    void Enter(const std::wstring& name) {
        Control(WaitForEditor()).SetText(name);
        PressKey(VK_RETURN);
    }
    void Rename(const std::wstring& shownName, const std::wstring& name) {
        BeginRename(shownName);
        Enter(name);
    }
    void ExpectNoMessage() {
        program.WaitUntilIdle();
        EXPECT_FALSE(program.HasMessageBox());
        EXPECT_FALSE(program.HasDialog());
    }
    /// The editor is open with this name, and Back ends it with nothing changed.
    void ExpectEditorAgain(const std::wstring& shownName) {
        EXPECT_EQ(TextInEditor(), shownName);
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(EditorIsGone());
        ExpectNoMessage();
        EXPECT_TRUE(List().Has(shownName));
    }
    bool Becomes(const std::wstring& folder, const Texts& names) const {
        return Eventually([&] { return device.NamesIn(folder) == names; });
    }
};
