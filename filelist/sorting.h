#pragma once
// The order of the list. The up-level entry leads, then folders, then files, whatever the key.

#include <cstdint>
#include <span>

#include "app/settings.h"
#include "filelist/file_item.h"

/// The sort keys as they are stored; any other number sorts by name.
constexpr std::uint32_t sortByName = 0;
constexpr std::uint32_t sortByType = 1;
constexpr std::uint32_t sortBySize = 2;
constexpr std::uint32_t sortByDate = 3;

/// Negative when a comes before b, positive when b comes first, 0 when either may.
using ItemComparator = int (*)(const FileItem& a, const FileItem& b, bool ascending);

/// Without regard to case upwards, by exact letters downwards.
int CompareByName(const FileItem& a, const FileItem& b, bool ascending);
/// Files by extension, then name; those without one lead upwards and trail downwards. Of two without one the
/// first given leads (upwards), so this is no strict order. Folders always go up by name.
int CompareByType(const FileItem& a, const FileItem& b, bool ascending);
/// Files by size alone; folders always go up by name.
int CompareBySize(const FileItem& a, const FileItem& b, bool ascending);
/// By time alone, folders by their creation.
int CompareByDate(const FileItem& a, const FileItem& b, bool ascending);

ItemComparator ComparatorOf(std::uint32_t sortKey);

/// Puts the items in the order of the options.
void SortItems(std::span<FileItem*> items, const ListOptions& options);

/// Carries an Arrange Icons By command out on the options. False for any other command.
bool ApplySortCommand(ListOptions& options, int command);

/// Sorts by the clicked column, or turns the direction round when it is the key already.
void ApplyColumnClick(ListOptions& options, int column);
