#pragma once
// The question before something is deleted.

#include "platform/ce_api.h"

/// When a question comes: before the job, where "All" means no more than "Yes", or during it.
enum class DeleteQuestion { Opening, DuringJob };

/// Asks and returns the job's next mode (file_job.h).
int ConfirmDelete(HWND owner, const wchar_t* question, DeleteQuestion kind);
