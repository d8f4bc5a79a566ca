#pragma once
// What the suites of the folder tree begin with: the program with its tree shown.

#include <string>

#include "tests/support/ui_test.h"

class TreeUi : public UiTest {
  protected:
    void StartWithTree(const std::wstring& commandLine = L"") {
        ShowTree();
        program.Start(commandLine);
    }

    /// Moves the keyboard to the tree, as the left soft key does.
    void FocusTree() {
        if (!program.TreeHasFocus())
            program.Command(IDM_SOFTKEY_CHANGE_VIEW);
        ASSERT_TRUE(program.TreeHasFocus());
    }

    TreeView Tree() const { return program.Tree(); }
};
