#pragma once
// The library that makes and extracts archives. It is no part of the program and may be missing.

#include "fileops/archive_types.h"
#include "platform/ce_api.h"

/// What the library is good for, if it is there.
ArchiverAvailability FindArchivers();

/// Has the library carry out a command for an archive of this type. False when it cannot, which the user has
/// been told then.
bool RunArchiver(ArchiveType type, const wchar_t* command);
