#pragma once
// The phone's record of a found file is shorter than the desktop's and goes by the same name: it takes its
// place here, before anything is declared with it.

#define _WIN32_FIND_DATAW desktop_find_data
#define WIN32_FIND_DATAW DESKTOP_FIND_DATA
#define PWIN32_FIND_DATAW DESKTOP_FIND_DATA_POINTER
#define LPWIN32_FIND_DATAW DESKTOP_FIND_DATA_LONG_POINTER
#include_next <minwinbase.h>
#undef _WIN32_FIND_DATAW
#undef WIN32_FIND_DATAW
#undef PWIN32_FIND_DATAW
#undef LPWIN32_FIND_DATAW

typedef struct _WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwOID;
    WCHAR cFileName[MAX_PATH];
} WIN32_FIND_DATAW, *PWIN32_FIND_DATAW, *LPWIN32_FIND_DATAW;
