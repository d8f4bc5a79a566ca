#pragma once
// The list's keys and its window procedure.

#include "platform/ce_api.h"

/// The modifier keys that are down.
struct KeyState {
    bool ctrl = false;
    bool alt = false;
};

/// Results of TranslateListKey that are no commands.
constexpr int keyTranslatesToNothing = 0;
constexpr int keyFocusesAddressBar = -1;
constexpr int keyOpensContextMenu = -2;

/// The command that a key in the list stands for, or one of the results above.
int TranslateListKey(int key, KeyState keys);

/// Sent by the list to its own view: edit the name again that was refused.
constexpr UINT UM_EDITLABEL = WM_APP + 1;

/// Puts the list's window procedure in front of the view's own.
void SubclassList(HWND view);
