// Stands in for a library that the device may have: the archiver, the one with the file dialog, or the
// network's. Adds each call, as a line of UTF-16, to the file "called" beside it with its own name in front,
// and answers what the file "answer" of that kind says: the result, four bytes, and then the text, which is
// given as it stands. An archiver that succeeds leaves something behind, as a real one would.

#include <cwchar>
#include <string>
#include <vector>

#include <windows.h>

#include <commdlg.h>
#include <winnetwk.h>

namespace {

std::wstring OwnPath() {
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&OwnPath), &library);
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(library, path, MAX_PATH);
    return path;
}

void Record(const std::wstring& call) {
    HANDLE file = CreateFileW((OwnPath() + L".called").c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                              OPEN_ALWAYS, 0, nullptr);
    const std::wstring line = call + L"\n";
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size() * sizeof(wchar_t)), &written, nullptr);
    CloseHandle(file);
}

/// Without the file the answer is `usual`, and no text.
INT32 Answer(INT32 usual, wchar_t* text, DWORD capacityInBytes) {
    INT32 result = usual;
    HANDLE file = CreateFileW((OwnPath() + L".answer").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return result;
    DWORD read = 0;
    ReadFile(file, &result, sizeof(result), &read, nullptr);
    ReadFile(file, text, capacityInBytes, &read, nullptr);
    CloseHandle(file);
    return result;
}

void MakeEmptyFile(const std::wstring& path) {
    CloseHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

/// The texts in quotes.
std::vector<std::wstring> Quoted(const std::wstring& command) {
    std::vector<std::wstring> texts;
    for (std::size_t begin = 0; (begin = command.find(L'"', begin)) != command.npos;) {
        const std::size_t end = command.find(L'"', begin + 1);
        texts.push_back(command.substr(begin + 1, end - begin - 1));
        begin = end + 1;
    }
    return texts;
}

/// An archive, or a file and a folder out of one.
void LeaveSomething(const std::wstring& command) {
    const std::vector<std::wstring> texts = Quoted(command);
    if (command.starts_with(L"a")) {
        MakeEmptyFile(texts.at(0));
    } else {
        MakeEmptyFile(texts.at(1) + L"out.txt");
        CreateDirectoryW((texts.at(1) + L"Out").c_str(), nullptr);
    }
}

bool IsEmpty(const wchar_t* output, DWORD bytes) {
    for (DWORD i = 0; i < bytes / sizeof(wchar_t); ++i)
        if (output[i])
            return false;
    return true;
}

INT32 Archive(const wchar_t* entryPoint, HWND owner, const wchar_t* command, wchar_t* output, DWORD size) {
    Record(std::wstring(entryPoint) + (owner ? L" owned" : L"") + L" " + std::to_wstring(size) +
           (IsEmpty(output, size) ? L" " : L" dirty ") + command);
    // A careless library takes the size for characters.
    const INT32 result = Answer(0, output, size * sizeof(wchar_t));
    if (result == 0)
        LeaveSomething(command);
    return result;
}

std::wstring Filter(const wchar_t* filter) {
    std::wstring text;
    for (; *filter; filter += std::wcslen(filter) + 1)
        text += std::wstring(filter) + L"|";
    return text;
}

std::wstring TitleOf(HWND window) {
    wchar_t title[64] = L"";
    GetWindowTextW(window, title, 64);
    return title;
}

std::wstring TextOr(const wchar_t* text, const wchar_t* otherwise) {
    return text ? text : otherwise;
}

} // namespace

extern "C" {

__declspec(dllexport) INT32 WINAPI UnZip(HWND owner, const wchar_t* command, wchar_t* output, DWORD size) {
    return Archive(L"UnZip", owner, command, output, size);
}

__declspec(dllexport) INT32 WINAPI Unlha(HWND owner, const wchar_t* command, wchar_t* output, DWORD size) {
    return Archive(L"Unlha", owner, command, output, size);
}

__declspec(dllexport) BOOL WINAPI hvGetSaveFileName(OPENFILENAMEW* request) {
    Record(L"title=" + TextOr(request->lpstrTitle, L"none") + L" filter=" + Filter(request->lpstrFilter) +
           L" folder=" + TextOr(request->lpstrInitialDir, L"none") + L" extension=" +
           TextOr(request->lpstrDefExt, L"none") + L" file=" + request->lpstrFile + L" room=" +
           std::to_wstring(request->nMaxFile) + L" flags=" + std::to_wstring(request->Flags));
    return Answer(FALSE, request->lpstrFile, request->nMaxFile * sizeof(wchar_t));
}

__declspec(dllexport) DWORD WINAPI WNetConnectionDialog1W(CONNECTDLGSTRUCTW* request) {
    const NETRESOURCEW& resource = *request->lpConnRes;
    Record(L"connect owner=" + TitleOf(request->hwndOwner) + L" type=" + std::to_wstring(resource.dwType) +
           L" local=" + TextOr(resource.lpLocalName, L"none") + L" remote=" +
           TextOr(resource.lpRemoteName, L"none") + L" flags=" + std::to_wstring(request->dwFlags));
    return static_cast<DWORD>(Answer(0, nullptr, 0));
}

__declspec(dllexport) DWORD WINAPI WNetDisconnectDialog(HWND owner, DWORD type) {
    Record(L"disconnect owner=" + TitleOf(owner) + L" type=" + std::to_wstring(type));
    return static_cast<DWORD>(Answer(0, nullptr, 0));
}

} // extern "C"
