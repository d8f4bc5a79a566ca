#pragma once
// The library that makes and extracts archives. It is no part of the program and may be missing.

#include "fileops/archive_types.h"
#include "platform/ce_api.h"

/// What the library is good for, if it is there.
ArchiverAvailability FindArchivers();

/// How a command went.
struct ArchiverRun {
    bool ran = false; // the library was called, and may have changed files even when it failed
    bool succeeded = false;
};

/// Has the library carry out a command for an archive of this type. The user has been told why it did not
/// succeed.
ArchiverRun RunArchiver(ArchiveType type, const wchar_t* command);
