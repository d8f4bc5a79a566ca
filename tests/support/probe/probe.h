#pragma once
// What the probe library, loaded into the program, finds out there: none of it can be seen from outside.
// Each export is run as a thread of the program and fills in the record it is given.

#include <windows.h>

struct ProbedItem {
    UINT level; // nesting: the popup's own items have 0
    UINT id;
    UINT type;  // MFT_...
    UINT state; // MFS_...
    BOOL hasPopup;
    wchar_t text[120];
};

struct MenuReport {
    HMENU menu; // asked for
    UINT count;
    ProbedItem items[1200];
};

struct MessageReport {
    HWND window; // asked for, with the three below
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT answer;
};

struct FontReport {
    HWND window; // asked for
    LOGFONTW font;
};

struct DrawingReport {
    HWND list; // asked for: a list whose parent tells texts and icons when they are drawn
    UINT texts;
    UINT icons;
};

struct LooksReport {
    UINT looks; // told: how many folders the program has begun to read since the last call
};

/// A folder that is handed over in the midst of a call that lets messages in.
struct LetInReport {
    HWND window;         // asked for: the main window
    wchar_t folder[260]; // asked for: what is handed over; empty to end it
    UINT place;  // asked for: where, counted from 0: each such call is two places, its begin and its end
    UINT places; // told: how many there have been since the last call
};

extern "C" {

/// All items of a MenuReport's menu.
__declspec(dllexport) DWORD WINAPI ReportMenu(void* report);
/// The answer to a MessageReport's message.
__declspec(dllexport) DWORD WINAPI ReportMessage(void* report);
/// The font that a FontReport's window draws with.
__declspec(dllexport) DWORD WINAPI ReportFont(void* report);
/// How many texts and icons a DrawingReport's list has asked for since the last call; the first one begins to
/// count. For one list of a program.
__declspec(dllexport) DWORD WINAPI ReportDrawing(void* report);
/// How often the program has begun to read a folder since the last call; the first one begins to count.
__declspec(dllexport) DWORD WINAPI CountLooks(void* report);
/// From here on the folder of a LetInReport is handed over once, by WM_COPYDATA, at the place it names;
/// memory that is freed from the first time on is spoilt, so that who still reads it is seen.
__declspec(dllexport) DWORD WINAPI LetIn(void* report);
}
