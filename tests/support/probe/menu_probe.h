#pragma once
// What the probe library, loaded into the program, tells about a menu: menus cannot be read from outside.

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
    ProbedItem items[400];
};

/// Export of menu_probe.dll, run as a thread of the program: fills in the report.
extern "C" __declspec(dllexport) DWORD WINAPI ReportMenu(void* report);
