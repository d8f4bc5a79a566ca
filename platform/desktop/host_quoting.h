#pragma once
// The host quotes the arguments it starts a program with; the phone hands a command line over as typed.

/// Turns `commandLine`, the text behind the program's name, in place into what was typed, when all of it is
/// one argument that the host put into quotes or whose own quotes it escaped. Any other text stays as it is,
/// its quotes included.
void UndoHostQuoting(wchar_t* commandLine);
