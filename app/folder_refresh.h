#pragma once
// The refresh that follows changes by others: once, two seconds after the last of a burst.

#include "common/path.h"

enum class RefreshCause { FolderChange, DeviceChange };

/// Starts the two seconds afresh.
void ScheduleRefresh(RefreshCause cause);

/// The watcher's notice: every further notice already queued counts with it.
void OnFolderChanged();

/// The watch goes on after the program's own work: what others changed meanwhile is refreshed like any
/// change.
void OnLookAgain();

/// The two seconds are over: the tree and the list show what is there now. While a name is edited, something
/// is dragged, a menu is open or an address is half typed they begin again.
void RefreshAfterChange();

/// Cuts `folder` at its last backslash until it is an existing folder or none is left.
void CutToExisting(Path& folder);
