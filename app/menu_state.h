#pragma once
// Keeps the soft-key menu and the tool bar's buttons in step with what a command can act on. The decisions
// are in menu_rules.h; here they are applied. The list's "Go to" popup hangs in the soft-key menu and follows
// with it.

#include "platform/ce_api.h"

/// The popup of the right soft key.
HMENU SoftKeyMenu();

/// Enables and greys every command by the focus, the selection, the folder and the clipboards.
void UpdateMenuState();

/// The same for another menu with some of these commands, such as a context menu about to open.
void ApplyMenuState(HMENU menu);

/// Sets all check marks from the settings and the list's options.
void RefreshCheckMarks();

/// The same for another menu with some of these commands.
void ApplyCheckMarks(HMENU menu);

/// What the list can do from the folder it shows.
void UpdateNavigationItems(bool up, bool back, bool forward);

/// "Paste", and with `alsoShortcut` "Paste Shortcut" too, which makes it the state of the list's clipboard
/// that every UpdateMenuState returns to.
void UpdatePasteItems(bool canPaste, bool alsoShortcut);
