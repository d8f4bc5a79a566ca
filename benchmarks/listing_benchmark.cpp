#include <cstdio>

#include "app/app_state.h"
#include "benchmarks/bare_list.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "benchmarks/sample_folder.h"
#include "resources/resource.h"

namespace {

/// Times of one number of entries, each per entry.
struct Times {
    double bare = 0; // walk and rows by the platform's calls
    double bareEmptying = 0;
    double bareSelecting = 0;
    double first = 0;
    double again = 0;
    double leaving = 0;
    double selecting = 0;
    double bytes = 0;
};

void Show(const Path& folder) {
    appState.fileList.GoToFolder(folder.View(), treeSelectOnly);
}

void MeasureBare(Times& times, const Path& folder, int count, DWORD style) {
    WalkFolder(folder.Text()); // the host has the folder at hand from here on
    BareList list(style);
    times.bare = TimeOnce([&] {
        WalkFolder(folder.Text());
        list.Fill(count);
    });
    times.bareSelecting = TimeOnce([&] { list.SelectAll(); });
    times.bareEmptying = TimeOnce([&] { list.Empty(); });
}

Times MeasureFolder(int count, int command, DWORD style) {
    FileList& list = appState.fileList;
    const Path folder = SampleFolder(count);
    const Path root;
    list.ApplyViewStyle(command);
    Show(root);

    Times times;
    const std::size_t bytesBefore = OwnBytes();
    times.first = TimeOnce([&] { Show(folder); });
    times.bytes = static_cast<double>(OwnBytes() - bytesBefore);
    times.again = TimeOnce([&] { Show(folder); });
    times.selecting = TimeOnce([&] { list.SelectAll(); });
    times.leaving = TimeOnce([&] { Show(root); });
    MeasureBare(times, folder, count, style);
    for (double* time : {&times.bare, &times.bareEmptying, &times.bareSelecting, &times.first, &times.again,
                         &times.leaving, &times.selecting, &times.bytes})
        *time /= count;
    return times;
}

/// The mean of several rounds: ten thousand entries take too short for the clock.
Times MeasureFewEntries(int command, DWORD style) {
    constexpr int rounds = 6;
    Times sum;
    for (int round = 0; round < rounds; ++round) {
        const Times times = MeasureFolder(fewEntries, command, style);
        sum.bare += times.bare / rounds;
        sum.bareEmptying += times.bareEmptying / rounds;
        sum.bareSelecting += times.bareSelecting / rounds;
        sum.first += times.first / rounds;
        sum.again += times.again / rounds;
        sum.leaving += times.leaving / rounds;
        sum.selecting += times.selecting / rounds;
        sum.bytes += times.bytes / rounds;
    }
    return sum;
}

void MeasureStyle(const char* name, int command, DWORD style) {
    std::printf("Listing, %s\n", name);
    const Times few = MeasureFewEntries(command, style);
    const Times many = MeasureFolder(manyEntries, command, style);
    ReportTime("one of 10,000 entries", few.first);
    ReportTime("one of 100,000 entries", many.first);
    ReportRatio("one of 100,000 entries : one of 10,000", many.first / few.first, 1.2);
    ReportRatio("shown again, one of 100,000 : one of 10,000", many.again / few.again, 1.2);
    ReportRatio("selected, one of 100,000 : one of 10,000", many.selecting / few.selecting, 1.2);
    ReportRatio("10,000 entries : bare walk and rows", few.first / few.bare, 1.5);
    ReportRatio("100,000 entries : bare walk and rows", many.first / many.bare, 1.5);
    ReportRatio("100,000 entries selected : by the bare control", many.selecting / many.bareSelecting, 1.5);
    ReportRatio("100,000 entries left : emptying the bare control", many.leaving / many.bareEmptying, 1.5);
    ReportRatio("own bytes of an entry : 300", many.bytes / 300, 1);
}

} // namespace

void MeasureListing() {
    MeasureStyle("details", IDM_VIEW_DETAILED, LVS_REPORT);
    MeasureStyle("large icons", IDM_VIEW_LARGE, LVS_ICON);
}
