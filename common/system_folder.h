#pragma once
// The system's own folder, which stays where it is and keeps its name.

#include <string_view>

#include "common/entry_places.h"

constexpr wchar_t systemFolderMessage[] = L"'Windows' is a system folder and cannot be moved nor deleted.";

class SystemFolder {
  public:
    explicit SystemFolder(std::wstring_view path);

    /// Whether the folder `name` in `folder` is the system's, by name or by place.
    bool Is(const wchar_t* folder, const wchar_t* name);
    /// Whether the system's folder would go with it.
    bool GoesWith(const wchar_t* folder, const wchar_t* name);
    /// Whether the folder `name` in `folder` must not get another name, for the system's would go with it.
    bool KeepsItsName(std::wstring_view folder, std::wstring_view name, std::wstring_view newName);

  private:
    bool IsNamed(const wchar_t* folder, const wchar_t* name) const;

    Path path_;
    ce::RealPlace place_;
    EntryPlaces places_;
};
