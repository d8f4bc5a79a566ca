#pragma once
// The quick way past the question whether a path names a link of the host (host_links.h): the entry is opened
// once, tells its real name, and is deleted or renamed by its handle. Wine only.

#include <windows.h>

/// Opens a file to delete or rename it, when the path names the file itself. INVALID_HANDLE_VALUE when it
/// names a link, when that cannot be told, and on Windows: the careful way is left then.
HANDLE OpenOwnEntry(const wchar_t* path);

/// The same without looking, for a path that is known to name no link.
HANDLE OpenEntry(const wchar_t* path);

/// Deletes what OpenOwnEntry opened, with the handle's closing.
BOOL DeleteOwnEntry(HANDLE entry);

/// Gives it, or any open file that may be renamed, a new path, in the place of a file there only when that is
/// to be replaced. Fails between volumes.
BOOL RenameOwnEntry(HANDLE entry, const wchar_t* to, bool replace);
