#pragma once
// Links of a host whose file calls act on what is behind a link instead of on the link: Wine's, where even
// DeleteFileW deletes the file a link points to and leaves the link. Windows acts on the link itself.

#include <windows.h>

/// Whether the last part of `path` is a link that the plain calls must not be given.
bool IsHostLink(const wchar_t* path);

/// Removes the link alone.
BOOL RemoveHostLink(const wchar_t* path);

/// Renames or moves the link alone, in the place of a file at `to` only when that is to be replaced.
BOOL MoveHostLink(const wchar_t* from, const wchar_t* to, bool replace);
