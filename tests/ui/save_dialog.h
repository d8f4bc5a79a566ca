#pragma once
// The platform's own dialog that asks for the name of a new archive.

#include <string>

#include <windows.h>

#include <dlgs.h>

#include "resources/resource.h"
#include "tests/support/input.h"
#include "tests/support/program.h"
#include "tests/support/waiting.h"

/// Compresses what is selected, as far as the question for the archive's name.
inline Dialog AskForArchive(Program& program) {
    program.PostCommand(IDM_SENDTO_ZIP);
    Dialog dialog = program.WaitForDialog(L"Compress Filename");
    WaitFor("for the soft keys", [&] { return dialog.SoftKeys().size() == 2; });
    return dialog;
}

/// The field for the name.
inline Control NameFieldOf(const Dialog& dialog) {
    return dialog.Item(dialog.Has(cmb13) ? cmb13 : edt1);
}

/// Answers with a name, and waits until what comes of it is done.
inline void SaveAs(const Program& program, Dialog& dialog, const std::wstring& name) {
    NameFieldOf(dialog).SetText(name);
    PressLeftSoftKey();
    dialog.WaitUntilClosed();
    program.WaitUntilIdle();
}
