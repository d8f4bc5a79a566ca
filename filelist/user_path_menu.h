#pragma once
// The remembered paths in the "Go to" menu.

#include <memory>
#include <span>
#include <string_view>

#include "common/text.h"
#include "platform/ce_api.h"

/// What a remembered path is called in the menu.
std::wstring_view UserPathMenuText(std::wstring_view path);

/// Puts an entry for each path and a separator in front of "User Path". Nothing when there is no path.
void InsertUserPaths(HMENU goToMenu, std::span<const OwnedText> paths);

/// Takes what InsertUserPaths made of the same paths out of the menu.
void RemoveUserPaths(HMENU goToMenu, std::span<const OwnedText> paths);
