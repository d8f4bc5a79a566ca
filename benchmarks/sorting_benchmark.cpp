#include <cstdio>
#include <vector>

#include "app/app_state.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "benchmarks/sample_folder.h"
#include "filelist/sorting.h"
#include "resources/resource.h"

namespace {

std::vector<FileItem> MakeItems(int count) {
    std::vector<FileItem> items(static_cast<std::size_t>(count));
    for (unsigned number = 0; FileItem & item : items) {
        const unsigned mixed = number++ * 2654435761U;
        wchar_t name[32];
        FormatText(name, L"Entry %08x.%03x", mixed, mixed % 7);
        item.kind = ItemKind::File;
        item.name = CopyText(name);
        item.size = mixed;
        item.time.dwLowDateTime = mixed;
    }
    return items;
}

/// The time of one entry's place in the order of `key`.
double OrderTime(int count, std::uint32_t key) {
    std::vector<FileItem> items = MakeItems(count);
    std::vector<FileItem*> order(items.size());
    ListOptions options;
    options.sortKey = key;
    return TimeOf([&] {
               for (std::size_t index = 0; index < items.size(); ++index)
                   order[index] = &items[index];
               SortItems(order, options);
           }) /
           count;
}

/// The time of one entry when a click on a column turns the list round.
double ClickTime(int count) {
    appState.fileList.ApplyViewStyle(IDM_VIEW_DETAILED);
    appState.fileList.GoToFolder(SampleFolder(count).View(), treeSelectOnly);
    return TimeOf([] { appState.fileList.OnColumnClick(0); }) / count;
}

} // namespace

void MeasureSorting() {
    std::printf("Sorting\n");
    // An entry's comparisons grow with the logarithm, 17 to 13, and its record is further from the processor;
    // a sort that grew with the square would be at 10.
    constexpr double limit = 2.5;
    ReportRatio("by name, one of 100,000 entries : one of 10,000",
                OrderTime(manyEntries, sortByName) / OrderTime(fewEntries, sortByName), limit);
    ReportRatio("by type, one of 100,000 entries : one of 10,000",
                OrderTime(manyEntries, sortByType) / OrderTime(fewEntries, sortByType), limit);
    ReportRatio("by size, one of 100,000 entries : one of 10,000",
                OrderTime(manyEntries, sortBySize) / OrderTime(fewEntries, sortBySize), limit);
    ReportRatio("by date, one of 100,000 entries : one of 10,000",
                OrderTime(manyEntries, sortByDate) / OrderTime(fewEntries, sortByDate), limit);
    const double few = ClickTime(fewEntries);
    const double many = ClickTime(manyEntries);
    ReportTime("a click on a column, one of 100,000 entries", many);
    ReportRatio("a click on a column, one of 100,000 entries : one of 10,000", many / few, limit);
}
