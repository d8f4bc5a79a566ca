#pragma once
// "Properties..." of what is selected in the list.

/// Shows the properties of the selected entries, or of the folder shown when nothing is selected, and has the
/// list and the tree follow what was changed.
void ShowSelectionProperties();

/// Shows the properties of the whole device.
void ShowDeviceProperties();
