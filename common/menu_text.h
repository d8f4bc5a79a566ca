#pragma once
// Texts of menu entries that are made of names.

#include <string_view>

#include "common/text.h"

/// The text of an entry that reads `name`: menus take a single "&" for the mark of a key.
OwnedText MenuTextOf(std::wstring_view name);
