#include "tests/support/library_stand_in.h"

#include <cstdint>
#include <stdexcept>

#include <windows.h>

#include "tests/support/file_places.h"
#include "tests/support/text.h"

namespace {

std::wstring BesideProgram(const std::wstring& name) {
    return L"\\Program Files\\Tarvik File Manager\\" + name;
}

void Put(const std::wstring& library, const std::wstring& name) {
    if (!CopyFileW(library.c_str(), BesideProgram(name).c_str(), FALSE))
        throw std::runtime_error("no " + Narrow(name) + " could be put onto the device");
}

} // namespace

LibraryStandIn::LibraryStandIn(const std::wstring& name) : path_(BesideProgram(name)) {
    Put(BesideTests(L"test_library.dll"), name);
}

void LibraryStandIn::Answer(int result, const std::wstring& text) {
    const HANDLE file =
        CreateFileW((path_ + L".answer").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const std::int32_t number = result;
    DWORD written = 0;
    WriteFile(file, &number, sizeof(number), &written, nullptr);
    WriteFile(file, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &written, nullptr);
    CloseHandle(file);
}

std::vector<std::wstring> LibraryStandIn::Calls() const {
    std::vector<std::wstring> calls;
    const HANDLE file = CreateFileW((path_ + L".called").c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return calls;
    std::wstring text(GetFileSize(file, nullptr) / sizeof(wchar_t), L'\0');
    DWORD read = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &read, nullptr);
    CloseHandle(file);
    for (std::size_t end; (end = text.find(L'\n')) != text.npos; text.erase(0, end + 1))
        calls.push_back(text.substr(0, end));
    return calls;
}

void LibraryStandIn::Forget() {
    DeleteFileW((path_ + L".called").c_str());
}

void PutLibraryWithoutFunctions(const std::wstring& name) {
    Put(BesideTests(L"test_probe.dll"), name);
}

void PutBuiltArchiver() {
    Put(BesideTests(L"..\\UNZip.dll"), L"UNZip.dll");
}

void RemoveLibrary(const std::wstring& name) {
    DeleteFileW(BesideProgram(name).c_str());
}
