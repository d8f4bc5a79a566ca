#include "tests/support/stand_in.h"

#include <stdexcept>

#include <windows.h>

#include "tests/support/file_places.h"
#include "tests/support/waiting.h"

namespace {

void MakeFolders(const std::wstring& folder) {
    if (folder.empty() || GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES)
        return;
    MakeFolders(FolderOf(folder));
    CreateDirectoryW(folder.c_str(), nullptr);
}

} // namespace

StandIn::StandIn(const std::wstring& path) : path_(path) {
    MakeFolders(FolderOf(path));
    if (!CopyFileW(BesideTests(L"test_recorder.exe").c_str(), path.c_str(), FALSE))
        throw std::runtime_error("no stand-in could be put onto the device");
}

StandIn::~StandIn() {
    DeleteFileW((path_ + L".stay").c_str());
    Eventually([this] { return Running() == 0; });
}

std::vector<std::wstring> StandIn::Starts() const {
    std::vector<std::wstring> starts;
    HANDLE file = CreateFileW((path_ + L".started").c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return starts;
    std::wstring text(8192, L'\0');
    DWORD read = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &read, nullptr);
    CloseHandle(file);
    text.resize(read / sizeof(wchar_t));
    for (std::size_t end; (end = text.find(L'\n')) != text.npos; text.erase(0, end + 1))
        starts.push_back(text.substr(0, end));
    return starts;
}

void StandIn::Stay() {
    CloseHandle(
        CreateFileW((path_ + L".stay").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

std::size_t StandIn::Running() const {
    std::size_t count = 0;
    WIN32_FIND_DATAW found{};
    HANDLE find = FindFirstFileW((path_ + L".running-*").c_str(), &found);
    if (find == INVALID_HANDLE_VALUE)
        return 0;
    do
        ++count;
    while (FindNextFileW(find, &found));
    FindClose(find);
    return count;
}
