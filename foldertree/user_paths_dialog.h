#pragma once
// The "User Path" dialog: the folders of the user's own in "Go to".

#include <vector>

#include "common/text.h"

/// Lets the user add, change and take away paths. What is done there is done at once, however it is left.
void editUserPaths(std::vector<OwnedText>& paths);
