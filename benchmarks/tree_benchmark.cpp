#include <cstdio>

#include "app/app_state.h"
#include "app/pane_layout.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "benchmarks/sample_folder.h"
#include "common/text.h"
#include "common/text_format.h"

namespace {

/// Times per sibling folder.
struct Times {
    double first = 0; // their parent's node gets them
    double again = 0; // it is read again while it has them
    double gone = 0;  // and when all but one have gone
};

void ShowTree(bool shown) {
    appState.settings.showFolderTree = shown;
    ShowPanes();
}

/// A folder of the device with `count` folders in it, made anew.
Path SiblingFolders(int count) {
    Path folder;
    wchar_t name[32];
    FormatText(name, L"\\Temp\\Siblings%d", count);
    [[maybe_unused]] const bool fits = folder.Assign(name);
    CreateDirectoryW(folder.Text(), nullptr);
    Path sibling;
    for (int index = 0; index < count; ++index) {
        FormatText(name, L"Folder %d", index);
        if (sibling.AssignChild(folder.View(), name))
            CreateDirectoryW(sibling.Text(), nullptr);
    }
    return folder;
}

void RemoveSiblings(const Path& folder, int count) {
    wchar_t name[32];
    Path sibling;
    for (int index = 1; index < count; ++index) {
        FormatText(name, L"Folder %d", index);
        if (sibling.AssignChild(folder.View(), name))
            RemoveDirectoryW(sibling.Text());
    }
}

Times MeasureSiblings(int count) {
    const Path folder = SiblingFolders(count);
    const auto read = [&] { appState.folderTree.selectPath(folder.View(), true, true); };
    appState.folderTree.rebuild();
    Times times;
    times.first = TimeOnce(read) / count;
    times.again = TimeOf(read) / count;
    RemoveSiblings(folder, count);
    times.gone = TimeOnce(read) / count;
    return times;
}

/// What a folder of subfolders costs that the list shows while the tree is hidden, in visits of one of as
/// many files. By turns, so that what else the machine does meets both.
double HiddenVisits(const Path& subfolders, const Path& files) {
    constexpr int rounds = 6;
    const auto visit = [](const Path& folder) {
        const double time = TimeOnce([&] { appState.fileList.GoToFolder(folder.View(), treeRescan); });
        appState.fileList.GoToFolder({}, treeRescan);
        return time;
    };
    ShowTree(false);
    appState.folderTree.rebuild();
    double ofSubfolders = 0, ofFiles = 0;
    for (int round = 0; round < rounds; ++round) {
        ofFiles += visit(files);
        ofSubfolders += visit(subfolders);
    }
    return ofSubfolders / ofFiles;
}

} // namespace

void MeasureTree() {
    ShowTree(true);
    std::printf("Folder tree, %d siblings\n", fewEntries);
    const Times some = MeasureSiblings(fewEntries / 10);
    const Times few = MeasureSiblings(fewEntries);
    ReportTime("a folder's first reading, each", few.first);
    ReportTime("its reading again, each", few.again);
    ReportTime("its leaving, each", few.gone);
    ReportRatio("ten times as many, first reading", few.first / some.first, 2.0);
    ReportRatio("ten times as many, again", few.again / some.again, 2.0);
    ReportRatio("ten times as many, leaving", few.gone / some.gone, 4.0);
    ReportRatio("visited while it is hidden : as many files",
                HiddenVisits(SiblingFolders(fewEntries), SampleFolder(fewEntries)), 1.3);
}
