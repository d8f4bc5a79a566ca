#include "launch/preferred_programs.h"

#include <utility>

#include "common/menu_text.h"
#include "common/path.h"
#include "platform/handles.h"
#include "resources/resource.h"

namespace {

// Where the separator is: behind the six entries that each of the menus has of its own.
constexpr UINT separatorPosition = 6;

constexpr std::wstring_view programExtension = L".exe";
constexpr std::wstring_view shortcutExtension = L".lnk";

// As much of a shortcut as is looked at.
constexpr int targetCapacity = 520;

/// What the file starts; null when that cannot be told.
OwnedText TargetOf(std::wstring_view folder, std::wstring_view name) {
    Path path;
    if (!path.AssignChild(folder, name))
        return nullptr;
    if (EqualNoCase(ExtensionOf(name), programExtension))
        return CopyText(path.View());
    wchar_t text[targetCapacity] = L"";
    if (!ce::SHGetShortcutTarget(path.Text(), text, targetCapacity))
        return nullptr;
    return CopyText(ProgramOfShortcut(text));
}

} // namespace

bool IsOfferedProgram(const WIN32_FIND_DATAW& found) {
    const std::wstring_view extension = ExtensionOf(found.cFileName);
    return !(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) &&
           (EqualNoCase(extension, programExtension) || EqualNoCase(extension, shortcutExtension));
}

std::wstring_view ProgramMenuText(std::wstring_view fileName) {
    return fileName.substr(0, fileName.rfind(L'.'));
}

std::wstring_view ProgramOfShortcut(std::wstring_view text) {
    if (!text.starts_with(L'"'))
        return text;
    text.remove_prefix(1);
    return text.substr(0, text.find(L'"'));
}

void PreferredPrograms::buildPreferredMenu(std::wstring_view folder, std::span<const HMENU> menus) {
    Remove(menus);
    Path pattern;
    if (!pattern.AssignPattern(folder))
        return;
    WIN32_FIND_DATAW found{};
    const FindHandle find(ce::FindFirstFileW(pattern.Text(), &found));
    if (!find)
        return;
    do {
        if (!IsOfferedProgram(found))
            continue;
        if (OwnedText target = TargetOf(folder, found.cFileName))
            Add(found.cFileName, std::move(target), menus);
    } while (targets_.size() < BUILT_ENTRY_LIMIT && ce::FindNextFileW(find.Get(), &found));
}

void PreferredPrograms::Remove(std::span<const HMENU> menus) {
    for (HMENU menu : menus) {
        if (!targets_.empty())
            DeleteMenu(menu, separatorPosition, MF_BYPOSITION);
        for (UINT entry = 0; entry < targets_.size(); ++entry)
            DeleteMenu(menu, IDM_SENDTO_FIRST + entry, MF_BYCOMMAND);
    }
    targets_.clear();
}

void PreferredPrograms::Add(std::wstring_view fileName, OwnedText target, std::span<const HMENU> menus) {
    const UINT_PTR command = IDM_SENDTO_FIRST + targets_.size();
    const OwnedText text = MenuTextOf(ProgramMenuText(fileName));
    for (HMENU menu : menus) {
        if (targets_.empty())
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu, MF_STRING, command, text.get());
    }
    targets_.push_back(std::move(target));
}

const wchar_t* PreferredPrograms::Target(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < targets_.size()
               ? targets_[static_cast<std::size_t>(index)].get()
               : nullptr;
}
