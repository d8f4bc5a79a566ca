#pragma once
// "Parameters...": a file is opened with a command line that the user types.

/// Asks for the parameters of the list's selected file and opens it.
void openWithParameters();
