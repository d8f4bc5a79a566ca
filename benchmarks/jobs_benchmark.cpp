#include <algorithm>
#include <array>
#include <vector>

#include "app/app_state.h"
#include "app/text.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "fileops/delete.h"
#include "fileops/transfer.h"
#include "resources/resource.h"

namespace {

constexpr int folderCount = 50;
constexpr int filesPerFolder = 40;
constexpr DWORD fileSize = 4096;
constexpr int rounds = 5;

using Name = std::array<wchar_t, 64>;

/// The clock on the wall: most of a file call's time is the platform's, not this process's.
double WallTime() {
    LARGE_INTEGER now{}, perSecond{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&perSecond);
    return 1e6 * static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

template <class Run>
double WallTimeOf(Run run) {
    const double start = WallTime();
    run();
    return WallTime() - start;
}

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
    CloseHandle(file);
}

template <class Visit>
void ForEachFolder(const wchar_t* base, Visit visit) {
    Name name{};
    for (int folder = 0; folder < folderCount; ++folder)
        visit(Named(name, L"%s\\folder%d", base, folder));
}

template <class Visit>
void ForEachFile(const wchar_t* base, const wchar_t* otherBase, Visit visit) {
    Name name{}, other{};
    for (int folder = 0; folder < folderCount; ++folder)
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
    ForEachFile(base, base, [](const wchar_t* file, const wchar_t*) { WriteFileOf(file, fileSize); });
}

void RemoveSample(const wchar_t* base) {
    ForEachFile(base, base, [](const wchar_t* file, const wchar_t*) { DeleteFileW(file); });
    ForEachFolder(base, [](const wchar_t* folder) { RemoveDirectoryW(folder); });
    RemoveDirectoryW(base);
}

std::vector<SelectionEntry> EntryNamed(const wchar_t* name, ItemKind kind) {
    std::vector<SelectionEntry> entries(1);
    entries[0].kind = kind;
    CopyTextTo(entries[0].folder, L"\\Temp");
    CopyTextTo(entries[0].name, name);
    return entries;
}

Path PathNamed(const wchar_t* text) {
    Path path;
    return path.Assign(text) ? path : Path();
}

void Transferred(Transfer kind, const wchar_t* name, ItemKind itemKind) {
    std::vector<SelectionEntry> entries = EntryNamed(name, itemKind);
    TransferEntries(kind, PathNamed(L"\\Temp"), PathNamed(L"\\Temp\\Target"), entries);
}

/// Agrees to the question that a deletion begins with.
DWORD WINAPI AnswerYes(void*) {
    HWND question = nullptr;
    while (!(question = FindWindowW(L"#32770", L"Confirm File Delete")) || !IsWindowVisible(question))
        Sleep(1);
    PostMessageW(question, WM_COMMAND, IDM_ANSWER_YES, 0);
    return 0;
}

void Deleted(const wchar_t* name) {
    std::vector<SelectionEntry> entries = EntryNamed(name, ItemKind::Folder);
    const ObjectHandle answer(CreateThread(nullptr, 0, AnswerYes, nullptr, 0, nullptr));
    DeleteEntries(PathNamed(L"\\Temp"), entries);
    WaitForSingleObject(answer.Get(), INFINITE);
}

/// The smallest ratio of some rounds: what else runs on the machine only makes them larger.
template <class Round>
double BestRatio(Round round) {
    double best = 1e9;
    for (int i = 0; i < rounds; ++i)
        best = std::min(best, round());
    return best;
}

double CopyRound() {
    const double bare = WallTimeOf([] {
        MakeFolders(L"\\Temp\\Bare");
        ForEachFile(L"\\Temp\\Source", L"\\Temp\\Bare",
                    [](const wchar_t* from, const wchar_t* to) { CopyFileW(from, to, FALSE); });
    });
    const double own = WallTimeOf([] { Transferred(Transfer::Copy, L"Source", ItemKind::Folder); });
    RemoveSample(L"\\Temp\\Bare");
    RemoveSample(L"\\Temp\\Target\\Source");
    return own / bare;
}

double MoveRound() {
    const double bare = WallTimeOf([] {
        MakeFolders(L"\\Temp\\Bare");
        ForEachFile(L"\\Temp\\Source", L"\\Temp\\Bare",
                    [](const wchar_t* from, const wchar_t* to) { MoveFileW(from, to); });
    });
    ForEachFile(L"\\Temp\\Bare", L"\\Temp\\Source",
                [](const wchar_t* from, const wchar_t* to) { MoveFileW(from, to); });
    RemoveSample(L"\\Temp\\Bare");
    const double own = WallTimeOf([] { Transferred(Transfer::Move, L"Source", ItemKind::Folder); });
    MakeFolders(L"\\Temp\\Source");
    ForEachFile(L"\\Temp\\Target\\Source", L"\\Temp\\Source",
                [](const wchar_t* from, const wchar_t* to) { MoveFileW(from, to); });
    RemoveSample(L"\\Temp\\Target\\Source");
    return own / bare;
}

double DeleteRound() {
    MakeSample(L"\\Temp\\Bare");
    const double bare = WallTimeOf([] { RemoveSample(L"\\Temp\\Bare"); });
    MakeSample(L"\\Temp\\Bare");
    return WallTimeOf([] { Deleted(L"Bare"); }) / bare;
}

double LargeRound() {
    const double bare = WallTimeOf([] { CopyFileW(L"\\Temp\\large", L"\\Temp\\Target\\bare", FALSE); });
    DeleteFileW(L"\\Temp\\Target\\bare");
    const double own = WallTimeOf([] { Transferred(Transfer::Copy, L"large", ItemKind::File); });
    DeleteFileW(L"\\Temp\\Target\\large");
    return own / bare;
}

} // namespace

void MeasureJobs() {
    constexpr DWORD largeSize = 1u << 30;
    CreateDirectoryW(L"\\Temp\\Target", nullptr);
    MakeSample(L"\\Temp\\Source");
    ReportRatio("copying 2,000 files of 4 KB in 50 folders, to CopyFileW", BestRatio(CopyRound), 1.25);
    ReportRatio("moving them within the device, to MoveFileW", BestRatio(MoveRound), 1.3);
    RemoveSample(L"\\Temp\\Source");
    ReportRatio("deleting 2,000 files in 50 folders, to DeleteFileW", BestRatio(DeleteRound), 1.3);
    WriteFileOf(L"\\Temp\\large", largeSize);
    ReportRatio("copying one file of 1 GB, to CopyFileW", BestRatio(LargeRound), 1.05);
    DeleteFileW(L"\\Temp\\large");
    RemoveDirectoryW(L"\\Temp\\Target");
}
