// Stands in for a program of the device: adds the command line it was started with, as UTF-16, to the file
// "started" beside it with its own name in front. While there is a file "stay" of that kind it goes on
// running, and holds a file named by its process number for as long.

#include <cwchar>

#include <windows.h>

namespace {

constexpr DWORD textCapacity = 1024;

void NameBeside(wchar_t (&path)[textCapacity], const wchar_t* suffix) {
    GetModuleFileNameW(nullptr, path, textCapacity - 64);
    std::wcscat(path, suffix);
}

void Record(const wchar_t* commandLine) {
    wchar_t path[textCapacity];
    NameBeside(path, L".started");
    HANDLE file = CreateFileW(path, FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS, 0, nullptr);
    wchar_t line[4 * textCapacity];
    const int length = swprintf(line, 4 * textCapacity, L"%ls\n", commandLine);
    DWORD written = 0;
    WriteFile(file, line, static_cast<DWORD>(length) * sizeof(wchar_t), &written, nullptr);
    CloseHandle(file);
}

void Stay() {
    wchar_t stay[textCapacity];
    wchar_t running[textCapacity];
    NameBeside(stay, L".stay");
    if (GetFileAttributesW(stay) == INVALID_FILE_ATTRIBUTES)
        return;
    wchar_t suffix[32];
    swprintf(suffix, 32, L".running-%lu", GetCurrentProcessId());
    NameBeside(running, suffix);
    HANDLE file = CreateFileW(running, GENERIC_WRITE | DELETE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                              CREATE_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    while (GetFileAttributesW(stay) != INVALID_FILE_ATTRIBUTES)
        Sleep(50);
    CloseHandle(file);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* commandLine, int) {
    Record(commandLine);
    Stay();
    return 0;
}
