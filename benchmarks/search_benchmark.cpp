#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "common/text.h"
#include "platform/handles.h"
#include "search/walk.h"

namespace {

constexpr int folderCount = 20;
constexpr int entriesEach = 1000;
constexpr int textCount = 120;

Path NewFolder(std::wstring_view path) {
    Path folder;
    [[maybe_unused]] const bool fits = folder.Assign(path);
    CreateDirectoryW(folder.Text(), nullptr);
    return folder;
}

FileHandle NewFile(const Path& folder, int number) {
    wchar_t name[32];
    FormatText(name, L"Entry %d.txt", number);
    Path path;
    return FileHandle(path.AssignChild(folder.View(), name)
                          ? CreateFileW(path.Text(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr)
                          : INVALID_HANDLE_VALUE);
}

/// 20,000 files in folders of a thousand.
Path FolderOfNames() {
    const Path top = NewFolder(L"\\Searched names");
    for (int index = 0; index < folderCount; ++index) {
        wchar_t path[64];
        FormatText(path, L"%s\\%d", top.Text(), index);
        const Path folder = NewFolder(path);
        for (int number = 0; number < entriesEach; ++number)
            NewFile(folder, number);
    }
    return top;
}

/// Files of 2 to 400 kilobytes of letters in no order, "q" not among them.
Path FolderOfTexts() {
    constexpr std::string_view letters = "etaoin shrdlu ETAOIN SHRDLU.";
    constexpr DWORD sizes[] = {2'000, 60'000, 400'000};
    std::vector<char> text(sizes[2]);
    unsigned random = 2006;
    for (char& letter : text) {
        random = random * 1103515245U + 12345U;
        letter = letters[(random >> 16) % letters.size()];
    }
    const Path folder = NewFolder(L"\\Searched texts");
    for (int number = 0; number < textCount; ++number) {
        const FileHandle file = NewFile(folder, number);
        DWORD written = 0;
        WriteFile(file.Get(), text.data(), sizes[number % 3], &written, nullptr);
    }
    return folder;
}

template <class Visit>
void WalkBarely(const Path& folder, Visit visit) {
    Path pattern;
    WIN32_FIND_DATAW found{};
    if (!pattern.AssignPattern(folder.View()))
        return;
    const HANDLE find = ::FindFirstFileW(pattern.Text(), &found);
    if (find == INVALID_HANDLE_VALUE)
        return;
    do {
        Path entry;
        const bool inside = found.cFileName[0] != L'.' && entry.AssignChild(folder.View(), found.cFileName);
        if (inside && (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            WalkBarely(entry, visit);
        else if (inside)
            visit(entry);
    } while (::FindNextFileW(find, &found));
    ::FindClose(find);
}

void ReadBarely(const Path& path) {
    static unsigned char block[scanBlockSize];
    const FileHandle file(
        CreateFileW(path.Text(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD read = 0;
    while (ReadFile(file.Get(), block, sizeof(block), &read, nullptr) && read) {
    }
}

void Search(const SearchCriteria& criteria) {
    SearchResults results;
    SearchRun run(criteria, results);
    while (run.RunFor(INFINITE)) {
    }
}

/// The search's time over that of the bare calls. Both are taken in turn and at their best, for what others
/// do on the machine only ever adds to them.
template <class Bare>
double RatioTo(Bare bare, const SearchCriteria& criteria) {
    constexpr int rounds = 4;
    double bareBest = TimeOf(bare);
    double best = TimeOf([&] { Search(criteria); });
    for (int round = 1; round < rounds; ++round) {
        bareBest = std::min(bareBest, TimeOf(bare));
        best = std::min(best, TimeOf([&] { Search(criteria); }));
    }
    return best / bareBest;
}

void MeasureNames() {
    SearchCriteria criteria;
    criteria.location = FolderOfNames();
    criteria.subfolders = true;
    const auto measure = [&](const char* what, const wchar_t* pattern) {
        CopyTextTo(criteria.name, pattern);
        const auto bare = [&] { WalkBarely(criteria.location, [](const Path&) {}); };
        ReportRatio(what, RatioTo(bare, criteria), 1.3);
    };
    measure("names, none found", L"NOTHING");
    measure("names, all found", L"ENTRY*.TXT");
}

void MeasureTexts() {
    SearchCriteria criteria;
    criteria.location = FolderOfTexts();
    const auto measure = [&](const char* what, const wchar_t* text, bool caseSensitive) {
        CopyTextTo(criteria.text, text);
        criteria.caseSensitive = caseSensitive;
        ReportRatio(what, RatioTo([&] { WalkBarely(criteria.location, ReadBarely); }, criteria), 1.0);
    };
    measure("text of one letter", L"q", true);
    measure("text with case", L"quarterly", true);
    measure("text without case", L"quarterly", false);
}

} // namespace

void MeasureSearch() {
    std::printf("File search, %d names and %d texts\n", folderCount * entriesEach, textCount);
    MeasureNames();
    MeasureTexts();
}
