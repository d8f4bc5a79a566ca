#pragma once
// What the suites of renaming in the list begin with.

#include <string>

#include "tests/ui/name_editor_ui.h"

class RenameUi : public NameEditorUi {
  protected:
    static inline const std::wstring home = L"\\Temp\\Home";

    /// The program in a folder with three files, shown with their extensions.
    void StartWithFiles() {
        ShowExtensions();
        for (const wchar_t* name : {L"\\a.txt", L"\\b.doc", L"\\c.bin"})
            device.File(home + name, Narrow(name));
        StartIn(home);
    }
    /// A name that is refused with a message after which the editor opens again.
    void ExpectAskedAgain(const std::wstring& shownName, const std::wstring& name, const std::wstring& text) {
        SCOPED_TRACE(testing::PrintToString(name));
        Rename(shownName, name);
        ExpectMessage(text);
        ExpectEditorAgain(shownName);
    }
    /// A name that the file system does not take: one message, and no editor after it.
    void ExpectFailure(const std::wstring& shownName, const std::wstring& name) {
        SCOPED_TRACE(testing::PrintToString(name));
        Rename(shownName, name);
        ExpectMessage(renameFailedText);
        EXPECT_TRUE(EditorIsGone());
        ExpectNoMessage();
        EXPECT_TRUE(List().Has(shownName));
    }
};
