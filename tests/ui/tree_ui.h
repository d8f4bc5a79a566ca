#pragma once
// What the suites of the folder tree begin with: the program with its tree shown.

#include <string>

#include "tests/support/ui_test.h"

class TreeUi : public UiTest {
  protected:
    void StartWithTree(const std::wstring& commandLine = L"") {
        device.WriteNumber(settingsKey, L"ShowFolder", 1);
        device.WriteNumber(settingsKey, L"TreeViewHeight", 130);
        program.Start(commandLine);
    }

    /// Moves the keyboard to the tree, as the left soft key does.
    void FocusTree() {
        if (!program.TreeHasFocus())
            program.Command(IDM_SOFTKEY_CHANGE_VIEW);
        ASSERT_TRUE(program.TreeHasFocus());
    }

    TreeView Tree() const { return program.Tree(); }

    /// Brings the stylus to a point and waits until it rests there: on a busy machine the screen reports
    /// earlier places late, and a press would land on those.
    static POINT Reach(POINT point) {
        StylusMove(point);
        WaitFor("for the stylus", [&] {
            return HoldsFor(60, [&] {
                POINT now{};
                GetCursorPos(&now);
                if (now.x != point.x || now.y != point.y)
                    StylusMove(point);
                return now.x == point.x && now.y == point.y;
            });
        });
        return point;
    }
    /// The same for a node's text.
    POINT Reach(const std::wstring& path) const { return Reach(Tree().PointOf(path)); }
};
