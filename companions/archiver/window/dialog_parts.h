#pragma once
// What the archiver's dialogs have in common with the program's: a template for each width of the screen, the
// soft keys, the whole screen.

#include "platform/ce_api.h"

namespace archiver {

/// Templates for screens 240, 320 and any other number of pixels wide.
using DialogTemplates = int[3];

/// The library itself, which holds the dialogs.
HINSTANCE Library();

/// The template for this screen; null when there is none.
const DLGTEMPLATE* FindTemplate(const DialogTemplates& templates);

/// Gives a dialog the whole screen and its soft keys.
void FitDialog(HWND dialog, int menuBar);

} // namespace archiver
