#pragma once
// All of the platform that the program sees. A call that behaves the same on the phone and on the desktop
// goes by its plain name; one whose phone behaviour the desktop lacks or does differently is ce::Name.

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <winnetwk.h>

#include "platform/ce_types.h"

#ifdef TARVIK_DEVICE
#include "platform/device/ce_device.h"
#else
#include "platform/desktop/ce_desktop.h"
#endif

/// The program's own start, called by the target's entry once the device is ready.
/// `commandLine` is the text behind the program's name, which the callee may write into.
/// Returns the process's exit code.
int ProgramMain(HINSTANCE instance, wchar_t* commandLine);
