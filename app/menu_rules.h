#pragma once
// Which commands can act, and which are marked: decided from plain records, without a window.

#include <cstdint>
#include <span>

/// What the keyboard belongs to.
enum class Focus { List, Tree, Text, Elsewhere };

/// What the decisions on enabling look at.
struct MenuFacts {
    Focus focus = Focus::Elsewhere;
    int selectedCount = 0;             // entries of the list, the up-level entry not counted
    bool anySelected = false;          // the up-level entry counts
    bool firstIsFile = false;          // the first selected entry is a file
    bool searchFolder = false;         // the list shows search results
    bool archiverAvailable = false;    // one for the archive type of the options
    bool anyArchiverAvailable = false; // one for some type
    bool filesToPaste = false;         // on the program's own clipboard
    bool textToPaste = false;          // on the system's clipboard
};

/// What stands behind the check marks.
struct CheckFacts {
    bool statusBar = false;
    bool folderTree = false;
    bool sideBySide = false;
    bool dragDrop = false;
    bool addressBar = false;
    bool ctrlLatched = false;
    bool shiftLatched = false;
    std::uint32_t sortKey = 0;
    bool ascending = true;
    int viewCommand = 0; // the one that stands for the style shown
};

/// Every command whose state follows the facts; the built "Send To" entries go by their first.
std::span<const int> RuledCommands();

/// Whether one of these commands can act. Other commands always can.
bool IsCommandEnabled(int command, const MenuFacts& facts);

/// Every command with a check mark.
std::span<const int> CheckedCommands();

/// Whether one of these commands is marked. Other commands never are.
bool IsCommandChecked(int command, const CheckFacts& facts);
