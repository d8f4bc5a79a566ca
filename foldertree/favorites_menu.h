#pragma once
// The "Favorites" menu: what is in the Favorites folder, subfolders as popups.

#include <vector>

#include "common/path.h"
#include "common/text.h"
#include "platform/ce_api.h"

/// Files beyond this number are left out: the program's fixed commands begin soon behind theirs.
constexpr std::size_t favoriteLimit = 8000;

class FavoritesMenu {
  public:
    /// Appends what is in `folder` to the menu: a separator, the subfolders, the files, in the order in which
    /// the file system tells of them. Nothing when the folder is empty.
    void buildFavoritesMenu(HMENU menu, const Path& folder);

    /// Takes out again what buildFavoritesMenu appended behind the menu's own entries.
    void clearFavoritesMenu(HMENU menu);

    int Count() const { return static_cast<int>(files_.size()); }
    /// The file behind an entry by its number, which counts on through all folders; null for none.
    const wchar_t* FileOf(int index) const;

  private:
    std::vector<OwnedText> files_;
};
