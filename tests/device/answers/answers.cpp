// Calls plain functions of the program with a few thousand inputs and writes each call with its answer, a
// line each, for functions_test.py, which makes the same calls of the phone's executable.

#include <fcntl.h>
#include <io.h>

#include <cstdint>
#include <cstdio>
#include <random>
#include <string>

#include "common/path.h"
#include "common/text_format.h"
#include "filelist/listing_rules.h"
#include "filelist/new_folder_names.h"
#include "filelist/sorting.h"
#include "fileops/transfer_rules.h"
#include "search/name_match.h"

namespace {

constexpr int rounds = 400;

std::mt19937 randomNumbers(20061103); // the same at each run

unsigned Below(unsigned limit) {
    return static_cast<unsigned>(randomNumbers() % limit);
}

std::uint64_t Bits(unsigned count) {
    const std::uint64_t all = static_cast<std::uint64_t>(randomNumbers()) << 32 | randomNumbers();
    return count == 0 ? 0 : all >> (64 - count);
}

// --- Lines ---

void Put(const char* function) {
    std::printf("%s", function);
}

void Put(std::int64_t number) {
    std::printf("\t%lld", static_cast<long long>(number));
}

void Put(std::wstring_view text) {
    std::printf("\t'");
    for (const wchar_t unit : text)
        std::printf("%04x", unit);
}

void EndLine() {
    std::printf("\n");
}

// --- Inputs ---

std::wstring Name(unsigned longest) {
    // Few letters, so that names are alike.
    constexpr std::wstring_view letters = L"abAB.. -_1_~\u00e9\u0416\u4e2d";
    std::wstring name;
    for (unsigned length = Below(longest + 1); name.size() < length;)
        name += letters[Below(static_cast<unsigned>(letters.size()))];
    return name;
}

std::wstring AsciiName() {
    std::wstring name = Name(8);
    for (wchar_t& unit : name)
        unit = unit < 0x80 ? unit : L'z';
    return name;
}

std::wstring FolderPath() {
    std::wstring path;
    for (unsigned depth = Below(5); depth > 0; --depth)
        path += L"\\" + Name(Below(8) == 0 ? 120 : 12);
    return path;
}

// --- Calls ---

void Sizes(std::uint64_t bytes) {
    wchar_t text[32];
    FormatSize(bytes, text, L"%s KB", L"[%s MB]");
    Put("FormatSize"), Put(static_cast<std::int64_t>(bytes)), Put(text), EndLine();
}

void Integers() {
    wchar_t text[24];
    const std::wstring plain = std::to_wstring(Bits(Below(64)));
    plain.copy(text, plain.size());
    text[plain.size()] = L'\0';
    FormatInteger(text);
    Put("FormatInteger"), Put(plain), Put(text), EndLine();
}

void Dates() {
    // From 1980 to 2060; not today, which each of both has another.
    const std::uint64_t ticks = 119'600'064'000'000'000 + Bits(54) + Bits(53);
    FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME parts{};
    FileTimeToSystemTime(&time, &parts);
    const unsigned capacity = Below(4) == 0 ? 8 + Below(16) : 40;
    wchar_t text[40] = L"";
    const std::uint32_t mode = Below(2);
    FormatDateTime(parts, {text, capacity}, mode);
    Put("FormatDateTime"), Put(static_cast<std::int64_t>(ticks)), Put(mode), Put(capacity), Put(text),
        EndLine();
}

void Paths() {
    const std::wstring folder = FolderPath();
    const std::wstring name = Name(Below(4) == 0 ? 200 : 12);
    Path path;
    const bool fits = path.AssignChild(folder, name);
    Put("AssignChild"), Put(folder), Put(name), Put(fits), Put(path.View()), EndLine();
    const bool patternFits = path.AssignPattern(folder);
    Put("AssignPattern"), Put(folder), Put(patternFits), Put(path.View()), EndLine();
    const int number = static_cast<int>(Below(12));
    path.Clear();
    const bool copyFits = AssignCopyName(path, folder, name, number);
    Put("AssignCopyName"), Put(folder), Put(name), Put(number), Put(copyFits), Put(path.View()), EndLine();
    Put("LeafOf"), Put(folder), Put(LeafOf(folder)), EndLine();
    Put("ParentOf"), Put(folder), Put(ParentOf(folder)), EndLine();
    Put("ExtensionOf"), Put(name), Put(ExtensionOf(name)), EndLine();
    Put("NameToReselect"), Put(ParentOf(folder)), Put(folder), Put(NameToReselect(ParentOf(folder), folder));
    EndLine();
}

void Matches() {
    constexpr std::wstring_view wild = L"**??ab.";
    std::wstring pattern;
    for (unsigned length = Below(7); pattern.size() < length;)
        pattern += wild[Below(static_cast<unsigned>(wild.size()))];
    std::wstring name = AsciiName();
    Put("nameMatches"), Put(name), Put(pattern);
    FoldCase(name);
    FoldCase(pattern);
    Put(nameMatches(name, pattern)), EndLine();
}

WIN32_FIND_DATAW Entry() {
    WIN32_FIND_DATAW entry{};
    entry.dwFileAttributes = Below(4) == 0 ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    const std::uint64_t ticks = 127'000'000'000'000'000 + Bits(Below(3) * 20) * 10;
    entry.ftLastWriteTime =
        entry.ftCreationTime = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    entry.nFileSizeLow = static_cast<DWORD>(Bits(Below(33)));
    AsciiName().copy(entry.cFileName, MAX_PATH - 1);
    return entry;
}

void PutEntry(const WIN32_FIND_DATAW& entry) {
    Put(static_cast<std::int64_t>(entry.dwFileAttributes));
    Put(static_cast<std::int64_t>(entry.ftLastWriteTime.dwHighDateTime) << 32 |
        entry.ftLastWriteTime.dwLowDateTime);
    Put(static_cast<std::int64_t>(entry.nFileSizeLow));
    Put(entry.cFileName);
}

void Comparisons() {
    const WIN32_FIND_DATAW a = Entry();
    const WIN32_FIND_DATAW b = Entry();
    const FileItem itemA = MakeFileItem(L"\\F", a);
    const FileItem itemB = MakeFileItem(L"\\F", b);
    const bool ascending = Below(2) == 0;
    const auto sign = [](int answer) { return (answer > 0) - (answer < 0); };
    const auto put = [&](const char* name, ItemComparator compare) {
        Put(name), PutEntry(a), PutEntry(b), Put(ascending), Put(sign(compare(itemA, itemB, ascending))),
            EndLine();
    };
    put("CompareByName", CompareByName);
    put("CompareByType", CompareByType);
    put("CompareBySize", CompareBySize);
    put("CompareByDate", CompareByDate);
}

} // namespace

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    LoadDecimalSeparator();
    for (const std::uint64_t bytes :
         {0ULL, 1ULL, 1023ULL, 1024ULL, 1536ULL, 1'023'999ULL, 1'024'000ULL, ~0ULL >> 1})
        Sizes(bytes);
    for (int i = 0; i < rounds; ++i) {
        Sizes(Bits(Below(64)));
        Integers();
        Dates();
        Paths();
        Matches();
        Comparisons();
    }
    return 0;
}
