#include "platform/desktop/noted_files.h"

#include <cwchar>

#include "platform/ce_api.h"

namespace {

constexpr std::wstring_view beginning = L"tarvik-making-";

/// A file of the system's folder for passing ones, terminated.
std::vector<wchar_t> NotePlace(std::wstring_view name) {
    std::vector<wchar_t> place(MAX_PATH + 1);
    place.resize(GetTempPathW(MAX_PATH + 1, place.data()));
    place.insert(place.end(), name.begin(), name.end());
    place.push_back(L'\0');
    return place;
}

std::vector<wchar_t> ReadNote(HANDLE note) {
    constexpr DWORD most = 1u << 24;
    const DWORD size = GetFileSize(note, nullptr);
    std::vector<wchar_t> text(size < most ? size / sizeof(wchar_t) : 0);
    DWORD read = 0;
    if (!ReadFile(note, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &read, nullptr))
        read = 0;
    text.resize(read / sizeof(wchar_t));
    return text;
}

/// Removes the files of a note, one a line, each with the note's own mark in its name. What was not noted to
/// its line's end was not made.
void RemoveNoted(std::vector<wchar_t>& text, std::wstring_view mark) {
    wchar_t* line = text.data();
    for (wchar_t& character : text) {
        if (character != L'\n')
            continue;
        character = L'\0';
        const std::wstring_view path = line;
        if (path.substr(path.rfind(L'\\') + 1).find(mark) != std::wstring_view::npos)
            ::DeleteFileW(line);
        line = &character + 1;
    }
}

void Sweep(const wchar_t* name) {
    const std::vector<wchar_t> place = NotePlace(name);
    {
        const FileHandle note(CreateFileW(place.data(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!note) // its process lives
            return;
        std::vector<wchar_t> text = ReadNote(note.Get());
        RemoveNoted(text, std::wstring_view(name).substr(beginning.size()));
    }
    ::DeleteFileW(place.data());
}

} // namespace

NotedFiles::~NotedFiles() {
    if (!note_)
        return;
    note_.Reset();
    ::DeleteFileW(place_.data());
}

std::wstring_view NotedFiles::Mark() {
    if (mark_[0] == L'\0') {
        LARGE_INTEGER moment{};
        QueryPerformanceCounter(&moment);
        std::swprintf(mark_, std::size(mark_), L"%lx%llx", GetCurrentProcessId(),
                      static_cast<unsigned long long>(moment.QuadPart) ^ GetTickCount64() << 32);
    }
    return mark_;
}

void NotedFiles::Begin() {
    std::vector<wchar_t> name(beginning.begin(), beginning.end());
    const std::wstring_view mark = Mark();
    name.insert(name.end(), mark.begin(), mark.end());
    place_ = NotePlace({name.data(), name.size()});
    note_.Reset(
        CreateFileW(place_.data(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
}

void NotedFiles::Note(std::wstring_view path) {
    if (!note_)
        Begin();
    std::vector<wchar_t> line(path.begin(), path.end());
    line.push_back(L'\n');
    DWORD written = 0;
    WriteFile(note_.Get(), line.data(), static_cast<DWORD>(line.size() * sizeof(wchar_t)), &written, nullptr);
}

void SweepNotedFiles() {
    WIN32_FIND_DATAW found;
    std::vector<wchar_t> name(beginning.begin(), beginning.end());
    name.push_back(L'*');
    const std::vector<wchar_t> pattern = NotePlace({name.data(), name.size()});
    const HANDLE find = ::FindFirstFileW(pattern.data(), &found);
    if (find == INVALID_HANDLE_VALUE)
        return;
    do
        Sweep(found.cFileName);
    while (::FindNextFileW(find, &found));
    ::FindClose(find);
}
