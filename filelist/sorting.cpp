#include "filelist/sorting.h"

#include <array>
#include <cwchar>
#include <vector>

#include "app/menu_state.h"
#include "common/path.h"
#include "filelist/file_list.h"
#include "filelist/merge_sort.h"
#include "filelist/rows.h"
#include "resources/resource.h"

namespace {

int CompareKinds(const FileItem& a, const FileItem& b) {
    if (a.kind == b.kind)
        return 0;
    return a.kind < b.kind ? -1 : 1;
}

int CompareNamesNoCase(const FileItem& a, const FileItem& b) {
    return _wcsicmp(a.name.get(), b.name.get());
}

int CompareExtensions(const FileItem& a, const FileItem& b) {
    const wchar_t* extensionOfA = wcsrchr(a.name.get(), L'.');
    const wchar_t* extensionOfB = wcsrchr(b.name.get(), L'.');
    if (!extensionOfA)
        return -1;
    if (!extensionOfB)
        return 1;
    const int result = _wcsicmp(extensionOfA, extensionOfB);
    return result != 0 ? result : CompareNamesNoCase(a, b);
}

bool HasExtension(const FileItem& item) {
    return wcsrchr(item.name.get(), L'.') != nullptr;
}

struct SortChoice {
    int command;
    std::uint32_t key;
};

constexpr std::array<SortChoice, 4> sortChoices = {{{IDM_ARRANGE_NAME, sortByName},
                                                    {IDM_ARRANGE_TYPE, sortByType},
                                                    {IDM_ARRANGE_SIZE, sortBySize},
                                                    {IDM_ARRANGE_DATE, sortByDate}}};

} // namespace

int CompareByName(const FileItem& a, const FileItem& b, bool ascending) {
    if (const int kinds = CompareKinds(a, b))
        return kinds;
    return ascending ? CompareNamesNoCase(a, b) : wcscmp(b.name.get(), a.name.get());
}

int CompareByType(const FileItem& a, const FileItem& b, bool ascending) {
    if (const int kinds = CompareKinds(a, b))
        return kinds;
    if (a.kind != ItemKind::File)
        return CompareNamesNoCase(a, b);
    if (ascending)
        return CompareExtensions(a, b);
    // Not the upward comparison turned round: of two files without an extension the second leads here.
    if (!HasExtension(a))
        return 1;
    if (!HasExtension(b))
        return -1;
    return CompareExtensions(b, a);
}

int CompareBySize(const FileItem& a, const FileItem& b, bool ascending) {
    if (const int kinds = CompareKinds(a, b))
        return kinds;
    if (a.kind != ItemKind::File)
        return CompareNamesNoCase(a, b);
    if (a.size == b.size)
        return 0;
    return (a.size < b.size) == ascending ? -1 : 1;
}

int CompareByDate(const FileItem& a, const FileItem& b, bool ascending) {
    if (const int kinds = CompareKinds(a, b))
        return kinds;
    return ascending ? CompareFileTime(&a.time, &b.time) : CompareFileTime(&b.time, &a.time);
}

ItemComparator ComparatorOf(std::uint32_t sortKey) {
    switch (sortKey) {
    case sortByType:
        return CompareByType;
    case sortBySize:
        return CompareBySize;
    case sortByDate:
        return CompareByDate;
    default:
        return CompareByName;
    }
}

void SortItems(std::span<FileItem*> items, const ListOptions& options) {
    const ItemComparator comparator = ComparatorOf(options.sortKey);
    const bool ascending = options.ascending != 0;
    MergeSort(items, [=](const FileItem& a, const FileItem& b) { return comparator(a, b, ascending); });
}

bool ApplySortCommand(ListOptions& options, int command) {
    if (command == IDM_ARRANGE_REVERSE) {
        options.ascending = options.ascending ? 0 : 1;
        return true;
    }
    for (const SortChoice& choice : sortChoices) {
        if (choice.command == command) {
            options.sortKey = choice.key;
            return true;
        }
    }
    return false;
}

void ApplyColumnClick(ListOptions& options, int column) {
    constexpr std::array<std::uint32_t, 4> keyOfColumn = {sortByName, sortBySize, sortByType, sortByDate};
    if (column < 0 || column >= static_cast<int>(keyOfColumn.size()))
        return;
    const std::uint32_t key = keyOfColumn[static_cast<std::size_t>(column)];
    if (key == options.sortKey)
        options.ascending = options.ascending ? 0 : 1;
    options.sortKey = key;
}

void FileList::SortList() {
    labelEdit.Leave(); // its entry takes another row
    std::vector<FileItem*> shown;
    shown.reserve(records_.items.size());
    for (int row = 0; FileItem* item = ItemAt(row); ++row) {
        item->row = row; // rows above may have gone
        shown.push_back(item);
    }
    SortItems(shown, options);
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    ReorderRows(window_, shown);
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
}

void FileList::OnSortCommand(int command) {
    if (!ApplySortCommand(options, command))
        return;
    SortList();
    RefreshCheckMarks();
}

void FileList::OnColumnClick(int column) {
    ApplyColumnClick(options, column);
    SortList();
    RefreshCheckMarks();
}
