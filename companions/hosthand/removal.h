#pragma once
// Deleting entries with all that is in them.

#include "companions/hosthand/job.h"

/// Deletes the entry: a file, a link alone, or a folder with all it holds, but nothing of what links and
/// mounted folders in it lead to. What was chosen as a file is not deleted when it is a folder by now, nor
/// the other way round.
Outcome Remove(const Chosen& entry, Employer& employer);

/// Deletes one entry that is no folder. False, with errno set, when that fails.
bool RemoveFile(int folder, const std::string& name);
