#pragma once
// What the option pages decide without a window.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "app/settings.h"

/// The sizes that the panes' font can be given, in points.
constexpr std::int32_t fontSizes[] = {1, 4, 6, 8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26};

/// The place of a size among them; the first for a size that is not there.
std::size_t FontSizeIndex(std::int32_t size);

/// The folders as they were typed.
struct TypedFolders {
    PathText startMenu{};
    PathText favorites{};
    PathText network{};
};

/// Takes the folders over; one left empty stays what it was. True when "Favorites" is another folder now.
bool TakeSystemFolders(Settings& settings, const TypedFolders& typed);
