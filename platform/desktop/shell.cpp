#include "platform/ce_api.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/desktop/device_path.h"
#include "platform/desktop/open_command.h"
#include "platform/desktop/rooted_path.h"

namespace {

/// Whether `path` lies on the drive of the host's system.
bool IsOnSystemDrive(std::wstring_view path) {
    wchar_t system[MAX_PATH] = L"";
    return ::GetWindowsDirectoryW(system, MAX_PATH) != 0 && system[0] != DeviceDrive() && path.size() > 2 &&
           path[1] == L':' && path[2] == L'\\' && SameText(path.substr(0, 1), {system, 1});
}

/// A path as the host's shell takes it: full. Nothing for one that leads off the device and is no program of
/// the host's system either.
class ShellPath {
  public:
    explicit ShellPath(const wchar_t* path) : device_(path) {
        if (path != nullptr && (*path == L'\0' || (!device_ && IsOnSystemDrive(path))))
            text_ = path;
        else if (device_)
            text_ = device_.WithDrive();
    }

    const wchar_t* Text() const { return text_; }

  private:
    DevicePath device_;
    const wchar_t* text_ = nullptr;
};

/// Whether `file` says nothing of where it is: the phone looks for it in the given folder or in \Windows.
bool IsBareName(std::wstring_view file) {
    return !file.empty() && file.find_first_of(L"\\/:") == std::wstring_view::npos;
}

/// The file `name` of `folder`, terminated; empty when it is not there.
std::vector<wchar_t> FileIn(std::wstring_view folder, std::wstring_view name) {
    std::vector<wchar_t> path(folder.begin(), folder.end());
    path.push_back(L'\\');
    path.insert(path.end(), name.begin(), name.end());
    path.push_back(L'\0');
    if (ce::GetFileAttributesW(path.data()) == INVALID_FILE_ATTRIBUTES)
        path.clear();
    return path;
}

struct SpecialFolder {
    int id;
    std::wstring_view path;
};

constexpr SpecialFolder specialFolders[] = {
    {CSIDL_DESKTOP, L"\\Windows\\Desktop"},
    {CSIDL_DESKTOPDIRECTORY, L"\\Windows\\Desktop"},
    {CSIDL_FAVORITES, L"\\Windows\\Favorites"},
    {CSIDL_FONTS, L"\\Windows\\Fonts"},
    {CSIDL_PERSONAL, L"\\My Documents"},
    {CSIDL_PROGRAM_FILES, L"\\Program Files"},
    {CSIDL_PROGRAMS, L"\\Windows\\Start Menu\\Programs"},
    {CSIDL_STARTMENU, L"\\Windows\\Start Menu"},
    {CSIDL_WINDOWS, L"\\Windows"},
};

/// Makes the folder and those above it, as far as they are missing.
void MakeFolders(wchar_t* path) {
    for (wchar_t* slash = path + 1; (slash = std::wcschr(slash, L'\\')) != nullptr; ++slash) {
        *slash = L'\0';
        ce::CreateDirectoryW(path, nullptr);
        *slash = L'\\';
    }
    ce::CreateDirectoryW(path, nullptr);
}

/// Whether the file is a shortcut of the host's that leads off the device, or where cannot be told: the
/// host's shell would follow it.
bool LeadsAway(std::wstring_view file) {
    constexpr std::wstring_view ending = L".lnk";
    wchar_t target[MAX_PATH] = L"";
    if (file.size() < ending.size() || !SameText(file.substr(file.size() - ending.size()), ending))
        return false;
    if (!ce::SHGetShortcutTarget(file.data(), target, MAX_PATH))
        return true;
    const std::wstring_view text = target;
    const bool quoted = text.starts_with(L'"');
    const std::size_t begin = quoted ? 1 : 0;
    target[std::min(text.find(quoted ? L'"' : L' ', begin), text.size())] = L'\0';
    return !DevicePath(target + begin);
}

} // namespace

namespace ce {

BOOL ProgramExists(const wchar_t* program) {
    const ShellPath path(program);
    return path.Text() != nullptr && ::GetFileAttributesW(path.Text()) != INVALID_FILE_ATTRIBUTES;
}

DWORD_PTR SHGetFileInfo(const wchar_t* path, DWORD attributes, SHFILEINFOW* info, UINT size, UINT flags) {
    if ((flags & SHGFI_PIDL) != 0)
        return ::SHGetFileInfoW(path, attributes, info, size, flags);
    const ShellPath file(path);
    return file.Text() != nullptr ? ::SHGetFileInfoW(file.Text(), attributes, info, size, flags) : 0;
}

BOOL ShellExecuteEx(SHELLEXECUTEINFOW* info) {
    const ShellPath directory(info->lpDirectory);
    std::vector<wchar_t> found;
    if (info->lpFile != nullptr && IsBareName(info->lpFile)) {
        if (info->lpDirectory != nullptr && *info->lpDirectory != L'\0')
            found = FileIn(info->lpDirectory, info->lpFile);
        if (found.empty())
            found = FileIn(L"\\Windows", info->lpFile);
        if (found.empty()) {
            SetLastError(ERROR_FILE_NOT_FOUND);
            return FALSE;
        }
    }
    const ShellPath file(found.empty() ? info->lpFile : found.data());
    if (file.Text() == nullptr || LeadsAway(file.Text())) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    if (HasUnclosedCommand(file.Text())) {
        MessageBoxW(info->hwnd,
                    L"This file cannot be opened: the command for files of its kind lacks a quotation mark.",
                    L"", MB_ICONHAND);
        SetLastError(ERROR_NO_ASSOCIATION);
        return FALSE;
    }

    SHELLEXECUTEINFOW request = *info;
    request.cbSize = sizeof(request);
    request.fMask |= SEE_MASK_FLAG_NO_UI; // what cannot be started stays silent
    request.lpFile = file.Text();
    request.lpDirectory = directory.Text();
    const BOOL started = ::ShellExecuteExW(&request);
    info->hInstApp = request.hInstApp;
    info->hProcess = request.hProcess;
    return started;
}

BOOL SHGetSpecialFolderPath(HWND, wchar_t* path, int folder, BOOL create) {
    const SpecialFolder* found = std::find_if(std::begin(specialFolders), std::end(specialFolders),
                                              [&](const SpecialFolder& known) { return known.id == folder; });
    if (found == std::end(specialFolders))
        return FALSE;
    *std::copy(found->path.begin(), found->path.end(), path) = L'\0';
    if (create)
        MakeFolders(path);
    return TRUE;
}

BOOL CreateProcessW(const wchar_t* application, wchar_t* commandLine, SECURITY_ATTRIBUTES* process,
                    SECURITY_ATTRIBUTES* thread, BOOL inherit, DWORD flags, void* environment,
                    wchar_t* directory, STARTUPINFOW* startup, PROCESS_INFORMATION* information) {
    const ShellPath program(application);
    const ShellPath folder(directory);
    if (program.Text() == nullptr) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    // The phone's command line begins behind the program's name, the host's with it.
    std::vector<wchar_t> command;
    for (const std::wstring_view part :
         {std::wstring_view(L"\""), std::wstring_view(program.Text()), std::wstring_view(L"\" "),
          std::wstring_view(commandLine != nullptr ? commandLine : L"")})
        command.insert(command.end(), part.begin(), part.end());
    command.push_back(L'\0');
    STARTUPINFOW plain{};
    plain.cb = sizeof(plain);
    return ::CreateProcessW(program.Text(), command.data(), process, thread, inherit, flags, environment,
                            folder.Text(), startup != nullptr ? startup : &plain, information);
}

FARPROC GetProcAddressW(HMODULE library, const wchar_t* name) {
    std::vector<char> plain;
    for (; *name != L'\0'; ++name) {
        if (*name > 0x7E) {
            SetLastError(ERROR_PROC_NOT_FOUND);
            return nullptr;
        }
        plain.push_back(static_cast<char>(*name));
    }
    plain.push_back('\0');
    return ::GetProcAddress(library, plain.data());
}

void SystemIdleTimerReset() {
    SetThreadExecutionState(ES_SYSTEM_REQUIRED);
}

BOOL EventModify(HANDLE event, DWORD function) {
    switch (function) {
    case EVENT_PULSE:
        return PulseEvent(event);
    case EVENT_RESET:
        return ResetEvent(event);
    case EVENT_SET:
        return SetEvent(event);
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
}

} // namespace ce
