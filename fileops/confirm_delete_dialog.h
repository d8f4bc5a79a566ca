#pragma once
// The question before something is deleted.

#include "platform/ce_api.h"

/// Asks and returns the job's next mode (file_job.h). Before the job "All" means no more than "Yes".
int ConfirmDelete(HWND owner, const wchar_t* question);
