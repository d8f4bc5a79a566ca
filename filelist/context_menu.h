#pragma once
// The list's context menus.

#include "platform/ce_api.h"

class FileList;

/// Opens the context menu that fits the selection at a point of the list, in client coordinates. A single
/// file that is no ".zip" archive has none: it is reached through the main menu and the keys. Returns, once
/// it has closed, whether there was one.
bool ShowContextMenu(const FileList& list, POINT point);

/// The same at the pointer's place.
void ShowContextMenuAtPointer(const FileList& list);

/// The same at the middle of the first selected entry's icon.
void ShowContextMenuAtSelection(const FileList& list);
