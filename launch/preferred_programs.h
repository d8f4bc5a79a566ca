#pragma once
// The programs of the "Send To" folder, as entries of the "Send To" menus.

#include <span>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "platform/ce_api.h"

/// Whether a file of the folder is offered: a program, or a shortcut to one.
bool IsOfferedProgram(const WIN32_FIND_DATAW& found);

/// What a file of the folder is called in the menus.
std::wstring_view ProgramMenuText(std::wstring_view fileName);

/// The program that a shortcut's text names: what its quotes enclose, or all of it.
std::wstring_view ProgramOfShortcut(std::wstring_view text);

class PreferredPrograms {
  public:
    /// Looks into `folder` and gives each of the menus a separator and an entry for each program, in the
    /// place of what the last call put there. The same menus are meant each time.
    void buildPreferredMenu(std::wstring_view folder, std::span<const HMENU> menus);

    /// What an entry starts; null for an index without one.
    const wchar_t* Target(int index) const;

  private:
    void Remove(std::span<const HMENU> menus);
    void Add(std::wstring_view fileName, OwnedText target, std::span<const HMENU> menus);

    std::vector<OwnedText> targets_;
};
