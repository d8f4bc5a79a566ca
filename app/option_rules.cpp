#include "app/option_rules.h"

#include <algorithm>
#include <iterator>

std::size_t FontSizeIndex(std::int32_t size) {
    const auto* found = std::find(std::begin(fontSizes), std::end(fontSizes), size);
    return found == std::end(fontSizes) ? 0 : static_cast<std::size_t>(found - fontSizes);
}

bool TakeSystemFolders(Settings& settings, const TypedFolders& typed) {
    if (typed.startMenu[0] != L'\0') {
        settings.startMenuPath = typed.startMenu;
        settings.startMenuLeaf = LeafOf(settings.startMenuPath.data()).data();
    }
    if (typed.network[0] != L'\0')
        settings.networkPath = typed.network; // its leaf stays where the default's began
    const std::wstring_view favorites = typed.favorites.data();
    if (favorites.empty() || favorites == settings.favoritesPath.data())
        return false;
    settings.favoritesPath = typed.favorites;
    return true;
}
