#pragma once
// The refresh that follows changes by others: once, two seconds after the last of a burst.

#include "platform/ce_api.h"

/// The timer of the main window that the two seconds end with.
constexpr UINT_PTR refreshTimer = 5;

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
