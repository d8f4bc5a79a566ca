#pragma once
// "Replace existing File?"

#include "companions/archiver/attendant.h"

namespace archiver {

/// Asks over `owner`, on the thread of that window. A question that ends in any unforeseen way counts as
/// "No".
ReplaceAnswer AskReplaceQuestion(HWND owner, const ReplaceQuestion& question);

} // namespace archiver
