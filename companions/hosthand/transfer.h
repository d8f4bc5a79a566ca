#pragma once
// Copying and moving entries with all that is in them.

#include "companions/hosthand/job.h"

/// Where an entry goes.
struct TransferPlace {
    int folder;
    const std::string& name; // that it gets there
    TargetNames& names;      // in that folder
};

/// Copies or moves the entry, a folder entry by entry. Links go as links, and what is behind them and in
/// mounted folders stays what it is; storage cards are entered. A pipe, socket or device is moved, but left
/// out of a copy. What was chosen as a file is not taken when it is a folder by now, nor the other way round.
Outcome Transfer(const Chosen& entry, const TransferPlace& place, bool isMove, Employer& employer);
