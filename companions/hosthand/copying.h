#pragma once
// Bringing single entries to other places so that nothing is lost: whatever fails, is stopped or ends the
// hand half-way, what was at either place before is still there, and nothing in part stands under a name of
// its own.

#include "companions/hosthand/job.h"

/// A single entry, no folder, and where it goes.
struct Step {
    int sourceFolder;
    const std::string& name;
    int targetFolder;
    const std::string& targetName;
    bool replaces; // a file that has the target's name; otherwise that fails with EEXIST
};

/// Copies the file. The copy grows under another name beside the target.
Outcome CopyFile(const Step& step, Employer& employer);

/// Makes a link like the one at the source: to the same text.
Outcome CopyLink(const Step& step, Employer& employer);

/// Makes a pipe or a socket's name like the one at the source.
Outcome CopySpecial(const Step& step, mode_t mode, Employer& employer);

/// Renames within one file system (EXDEV from one to another).
bool Rename(const Step& step);
