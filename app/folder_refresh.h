#pragma once
// The refresh that follows changes by others: once, two seconds after the last of a burst.

#include "app/path.h"

enum class RefreshCause { FolderChange, DeviceChange };

/// Starts the two seconds afresh.
void ScheduleRefresh(RefreshCause cause);

/// The watcher's notice: every further notice already queued counts with it.
void OnFolderChanged();

/// The two seconds are over: the tree and the list show what is there now. While a name is edited, something
/// is dragged or a menu is open they begin again.
void RefreshAfterChange();

/// Cuts `folder` at its last backslash until it exists or none is left.
void CutToExisting(Path& folder);
