#include <algorithm>
#include <array>
#include <vector>

#include "app/app_state.h"
#include "benchmarks/job_calls.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "common/text.h"
#include "fileops/delete.h"
#include "resources/resource.h"

namespace {

constexpr int filesPerFolder = 40;

/// What the jobs work on.
struct Sample {
    int folders;
    DWORD fileSize;
};

Sample sample{50, 4096};

using Name = std::array<wchar_t, 64>;

const wchar_t* Named(Name& name, const wchar_t* format, const wchar_t* base, int folder = 0, int file = 0) {
    FormatText(name, format, base, folder, file);
    return name.data();
}

void WriteFileOf(const wchar_t* path, DWORD size) {
    static const std::vector<char> content(1 << 20, 'x');
    HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    for (DWORD left = size; left > 0;) {
        DWORD written = 0;
        WriteFile(file, content.data(), std::min<DWORD>(left, content.size()), &written, nullptr);
        left -= written;
    }
    if (size >= content.size())
        FlushFileBuffers(file); // the disk is not to be busy with it when the copies are measured
    CloseHandle(file);
}

template <class Visit>
void ForEachFolder(const wchar_t* base, Visit visit) {
    Name name{};
    for (int folder = 0; folder < sample.folders; ++folder)
        visit(Named(name, L"%s\\folder%d", base, folder));
}

template <class Visit>
void ForEachFile(const wchar_t* base, const wchar_t* otherBase, Visit visit) {
    Name name{}, other{};
    for (int folder = 0; folder < sample.folders; ++folder)
        for (int file = 0; file < filesPerFolder; ++file)
            visit(Named(name, L"%s\\folder%d\\file%d", base, folder, file),
                  Named(other, L"%s\\folder%d\\file%d", otherBase, folder, file));
}

void MakeFolders(const wchar_t* base) {
    CreateDirectoryW(base, nullptr);
    ForEachFolder(base, [](const wchar_t* folder) { CreateDirectoryW(folder, nullptr); });
}

void MakeSample(const wchar_t* base) {
    MakeFolders(base);
    ForEachFile(base, base, [](const wchar_t* file, const wchar_t*) { WriteFileOf(file, sample.fileSize); });
}

void RemoveFolders(const wchar_t* base) {
    ForEachFolder(base, [](const wchar_t* folder) { RemoveDirectoryW(folder); });
    RemoveDirectoryW(base);
}

void RemoveSample(const wchar_t* base) {
    ForEachFile(base, base, [](const wchar_t* file, const wchar_t*) { DeleteFileW(file); });
    RemoveFolders(base);
}

/// Reads the question that a deletion begins with, agrees to it, and notes when.
DWORD WINAPI AnswerYes(void* when) {
    HWND question = nullptr;
    while (!(question = FindWindowW(L"#32770", L"Confirm File Delete")) || !IsWindowVisible(question))
        Sleep(1);
    Rest();
    *static_cast<double*>(when) = WallTime();
    PostMessageW(question, WM_COMMAND, IDM_ANSWER_YES, 0);
    return 0;
}

/// The time of a deletion after a rest, from the user's "Yes" on.
double DeletionTimeOf(const wchar_t* name) {
    std::vector<SelectionEntry> entries = EntryNamed(name, ItemKind::Folder);
    Rest();
    double start = 0;
    const ObjectHandle answer(CreateThread(nullptr, 0, AnswerYes, &start, 0, nullptr));
    StartDelete(PathNamed(L"\\Temp"), entries);
    const double end = WallTime();
    WaitForSingleObject(answer.Get(), INFINITE);
    return end - start;
}

/// What a job took, and what the bare calls for the same took.
struct Times {
    double own;
    double bare;
};

Times CopyRound() {
    Times times{};
    times.bare = WallTimeOf([] {
        MakeFolders(L"\\Temp\\Bare");
        ForEachFile(L"\\Temp\\Source", L"\\Temp\\Bare",
                    [](const wchar_t* from, const wchar_t* to) { CopyFileW(from, to, FALSE); });
    });
    times.own = WallTimeOf([] { Transferred(Transfer::Copy, L"Source", ItemKind::Folder); });
    RemoveSample(L"\\Temp\\Bare");
    RemoveSample(L"\\Temp\\Target\\Source");
    return times;
}

void MoveFiles(const wchar_t* from, const wchar_t* to) {
    ForEachFile(from, to, [](const wchar_t* source, const wchar_t* target) { MoveFileW(source, target); });
}

void MoveTree(const wchar_t* from, const wchar_t* to) {
    MakeFolders(to);
    MoveFiles(from, to);
    RemoveFolders(from);
}

/// The job also makes and removes the folders; the bare calls find them made.
Times MoveRound() {
    Times times{};
    MakeFolders(L"\\Temp\\Bare");
    times.bare = WallTimeOf([] { MoveFiles(L"\\Temp\\Source", L"\\Temp\\Bare"); });
    MoveFiles(L"\\Temp\\Bare", L"\\Temp\\Source");
    RemoveFolders(L"\\Temp\\Bare");
    times.own = WallTimeOf([] { Transferred(Transfer::Move, L"Source", ItemKind::Folder); });
    MoveTree(L"\\Temp\\Target\\Source", L"\\Temp\\Source");
    return times;
}

Times DeleteRound() {
    Times times{};
    MakeSample(L"\\Temp\\Bare");
    times.bare = WallTimeOf([] { RemoveSample(L"\\Temp\\Bare"); });
    MakeSample(L"\\Temp\\Bare");
    times.own = DeletionTimeOf(L"Bare");
    return times;
}

Times LargeRound() {
    Times times{};
    times.bare = WallTimeOf([] { CopyFileW(L"\\Temp\\large", L"\\Temp\\Target\\bare", FALSE); });
    DeleteFileW(L"\\Temp\\Target\\bare");
    times.own = WallTimeOf([] { Transferred(Transfer::Copy, L"large", ItemKind::File); });
    DeleteFileW(L"\\Temp\\Target\\large");
    return times;
}

/// The middle one of some rounds' ratios: the two times of a round lie side by side, so that a machine that
/// is slower for a while slows both. `alone` is what of the job is left out.
template <class Round>
double MiddleRatio(int rounds, Round round, double alone = 0) {
    std::vector<double> ratios;
    for (int i = 0; i < rounds; ++i) {
        const Times times = round();
        ratios.push_back((times.own - alone) / times.bare);
    }
    const auto middle = ratios.begin() + rounds / 2;
    std::nth_element(ratios.begin(), middle, ratios.end());
    return *middle;
}

/// The middle one of the times that a job takes in some rounds.
template <class Round>
double MiddleTime(int rounds, Round round) {
    return MiddleRatio(rounds, [&] { return Times{round().own, 1}; });
}

template <class Measure>
double WithEmptyFiles(int folders, Measure measure) {
    sample = {folders, 0};
    MakeSample(L"\\Temp\\Source");
    const double measured = measure();
    RemoveSample(L"\\Temp\\Source");
    return measured;
}

/// How a file's cost grows from 1,000 files to 50,000. They are empty: what there is beside their contents is
/// what may grow. What a job costs without any file, its dialog above all, is left out, and the bare calls
/// tell how much of the growth is the platform's.
template <class Round>
void ReportGrowth(const char* what, Round round) {
    const double alone = WithEmptyFiles(0, [&] { return MiddleTime(5, round); });
    const double few = WithEmptyFiles(1'000 / filesPerFolder, [&] { return MiddleRatio(15, round, alone); });
    const double many = WithEmptyFiles(50'000 / filesPerFolder, [&] { return MiddleRatio(3, round, alone); });
    ReportRatio(what, many / few, 1.25);
}

} // namespace

void MeasureJobs() {
    constexpr DWORD largeSize = 1u << 30;
    CreateDirectoryW(L"\\Temp\\Target", nullptr);
    MakeSample(L"\\Temp\\Source");
    ReportRatio("copying 2,000 files of 4 KB in 50 folders, to CopyFileW", MiddleRatio(9, CopyRound), 1.25);
    ReportRatio("moving them within the device, to MoveFileW", MiddleRatio(9, MoveRound), 1.3);
    RemoveSample(L"\\Temp\\Source");
    ReportRatio("deleting them, from a Yes after 0.3 s on, to DeleteFileW", MiddleRatio(25, DeleteRound),
                1.3);
    WriteFileOf(L"\\Temp\\large", largeSize);
    ReportRatio("copying one file of 1 GB, to CopyFileW", MiddleRatio(5, LargeRound), 1.05);
    DeleteFileW(L"\\Temp\\large");
    ReportGrowth("copying one of 50,000 files, to one of 1,000", CopyRound);
    ReportGrowth("moving one of 50,000 files, to one of 1,000", MoveRound);
    ReportGrowth("deleting one of 50,000 files, to one of 1,000", DeleteRound);
    RemoveDirectoryW(L"\\Temp\\Target");
}
