#pragma once
// Where the panes and bars of the main window lie.

#include <cstdint>

#include "platform/ce_api.h"

/// A place in the main window's client area, in pixels.
struct Place {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Place&) const = default;
};

/// What the arrangement depends on. A bar that is hidden has height 0.
struct LayoutInput {
    int width = 0;
    int height = 0;
    bool addressBarShown = false;
    int addressBarHeight = 0;
    bool statusBarShown = false;
    int statusBarHeight = 0;
    bool treeShown = false;
    bool sideBySide = false;
    int treeWidth = 0;
    int treeHeight = 0;
};

struct PanePlaces {
    Place addressBar;
    Place statusBar;
    Place tree;
    Place list;
};

/// The places of all children. Those of hidden children mean nothing.
PanePlaces ArrangePanes(const LayoutInput& input);

/// Height that the children share on a screen: what the title strip and the soft keys leave of it.
int LayoutHeight(int screenHeight, int menuHeight);

/// Where the pointer may be for the border between the panes to follow it: strictly above `lowest` and below
/// `highest`; the border stays where it is otherwise.
struct SplitRange {
    int lowest = 0;
    int highest = 0;
};

/// The tree's new extent for a pointer that was pressed at `press` when the extent was `extentAtPress`, or
/// `extent` unchanged when the pointer is out of range.
int SplitExtent(int extent, int pointer, int press, int extentAtPress, SplitRange range);

/// The show command for the saved window-state word.
enum class ShowState { Minimized, Normal, Maximized };
ShowState ShowStateOf(int word);

/// The window state that a window shown by the option "OverLapped" starts in.
constexpr int savedWindowState = 92;

/// Places all children by the screen and the settings, and keeps the input panel's flags.
void LayoutPanes();

/// Remembers where the stylus went down on the border.
void BeginSplit(LPARAM pointer);

/// Moves the border with the stylus and lays out again.
void DragSplitter(LPARAM pointer);

/// Makes the font of the option "Change the icon font", or the system font, and sets it on both panes.
void ApplyPaneFont();

/// Shows or hides the bars and the tree as the settings say; a hidden pane gives the focus to the list.
void ShowPanes();
