#pragma once
// Archives: the selected entries of the list go into one, or come out of those selected.

/// "ZIP Archive...": asks for the archive's name and compresses the selection into it.
void CompressSelection();

/// "Extract to...": extracts the selected archives where the options say, or where the user says when asked.
void ExtractSelection();

/// "Extract to here": extracts the first selected entry beside itself.
void ExtractHere();
