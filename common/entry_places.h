#pragma once
// Where entries really are, so that another spelling of a folder is not taken for another folder.

#include <optional>

#include "common/path.h"
#include "platform/ce_api.h"

/// Where a folder is; the root is the empty path.
ce::RealPlace PlaceOfFolder(std::wstring_view folder);

/// Looks a folder up once for all of its entries that follow one another.
class EntryPlaces {
  public:
    /// Where the folder is.
    const ce::RealPlace& Folder(const wchar_t* folder);

    /// Whether the folder `name` in `folder` is `place` itself.
    bool Is(const wchar_t* folder, const wchar_t* name, const ce::RealPlace& place);
    /// Whether it is `place` or holds it, so that what is done to it is done to `place` as well. A link holds
    /// nothing: it goes alone.
    bool Holds(const wchar_t* folder, const wchar_t* name, const ce::RealPlace& place);

  private:
    std::optional<ce::RealPlace> EntryNear(const wchar_t* folder, const wchar_t* name,
                                           const ce::RealPlace& place);

    Path folder_; // the last one
    std::optional<ce::RealPlace> place_;
};
