#pragma once
// "Choose Program...": a file is opened by a program that the user picks.

#include <string_view>

#include "common/path.h"

/// A file that a program is chosen for.
struct ProgramChoice {
    Path folder;
    Path name;
    bool forceAlways = false; // the program chosen will always open such files
    bool launch = true;       // it opens the file now
};

/// Asks for the program and does what the choice says. 1 when one was chosen, 0 when the user cancelled or
/// the file has no extension.
int ChooseProgram(const ProgramChoice& choice);

/// "Choose Program..." for the list's selected file.
void ChooseProgramForSelection();
