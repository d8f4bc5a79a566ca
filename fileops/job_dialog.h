#pragma once
// What the dialogs on files have in common: a template for each width of the screen, the soft keys, the
// place.

#include "app/page_frame.h"
#include "platform/ce_api.h"

/// Runs a modal dialog by its template for this screen: 240, 320 or any other number of pixels wide.
INT_PTR RunDialog(const int (&templates)[3], HWND owner, DLGPROC procedure, void* parameter);

/// Makes the soft keys of a dialog.
void AddSoftKeys(HWND dialog, int menuBar);

/// Makes a dialog as large as the screen allows and puts the input panel away.
void FillScreen(HWND dialog);
