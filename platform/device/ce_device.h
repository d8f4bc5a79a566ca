#pragma once
// On the phone every ce:: call is the platform's own. This file declares what mingw-w64's headers lack or
// name otherwise.

#include <cwchar>
#include <cwctype>
#include <vector>

#include "platform/ce_types.h"
#include "platform/path_spelling.h"
#include "platform/tree_steps.h"

// Numbers that the phone has otherwise.
constexpr int systemColour = 0x40000000;
#undef COLOR_HIGHLIGHT
#undef COLOR_BTNFACE
#undef SW_MAXIMIZE
constexpr int COLOR_HIGHLIGHT = systemColour | 13;
constexpr int COLOR_BTNFACE = systemColour | 15;
constexpr int SW_MAXIMIZE = 12;

extern "C" {
BOOL SHCreateMenuBar(SHMENUBARINFO* info);
HWND SHFindMenuBar(HWND parent);
BOOL SHInitDialog(SHINITDLGINFO* info);
BOOL SHHandleWMSettingChange(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info);
BOOL SHHandleWMActivate(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info, DWORD flags);
BOOL SHCreateShortcut(const wchar_t* shortcut, const wchar_t* target);
BOOL SHGetShortcutTarget(const wchar_t* shortcut, wchar_t* target, int capacity);
BOOL DeleteAndRenameFile(const wchar_t* to, const wchar_t* from);
FARPROC GetProcAddressW(HMODULE library, const wchar_t* name);
void SystemIdleTimerReset();
BOOL EventModify(HANDLE event, DWORD function);
HWND CommandBar_Create(HINSTANCE instance, HWND parent, int id);
HWND CommandBar_InsertComboBox(HWND bar, HINSTANCE instance, int width, UINT style, WORD id, WORD button);
int CommandBar_Height(HWND bar);
BOOL CommandBar_Show(HWND bar, BOOL show);
}

#undef SHGetFileInfo
#undef ShellExecuteEx
#undef SHGetSpecialFolderPath
extern "C" {
DWORD_PTR SHGetFileInfo(const wchar_t* path, DWORD attributes, SHFILEINFOW* info, UINT size, UINT flags);
BOOL ShellExecuteEx(SHELLEXECUTEINFOW* info);
BOOL SHGetSpecialFolderPath(HWND owner, wchar_t* path, int folder, BOOL create);
}

namespace ce {
/// The phone has nothing better than its calls for single files.
inline std::unique_ptr<TreeSteps> BeginTreeSteps() {
    return nullptr;
}

/// Slashes, "." and ".." mean nothing to the phone's own calls. A server's path stays as it is.
inline BOOL ResolvePath(const wchar_t* path, wchar_t* resolved, int capacity) {
    const std::wstring_view text = path;
    const std::span<wchar_t> room(resolved, static_cast<std::size_t>(capacity) - 1);
    *resolved = L'\0';
    if (text.empty())
        return FALSE;
    if (text.starts_with(L"\\\\")) {
        if (text.size() <= room.size())
            *std::ranges::copy(text, resolved).out = L'\0';
        return *resolved != L'\0';
    }
    const std::optional<std::size_t> length = SpellPath(text, noDrive, room);
    const std::size_t slash = length && (*length == 0 || IsSlash(text.back())) ? 1 : 0;
    if (!length || *length + slash > room.size()) {
        *resolved = L'\0';
        return FALSE;
    }
    std::wcscpy(resolved + *length, slash != 0 ? L"\\" : L"");
    return TRUE;
}

/// The phone has no links: a folder is where its path says, in letters of any case.
class RealPlace {
  public:
    explicit RealPlace(const wchar_t* folder) {
        wchar_t text[MAX_PATH] = L"";
        isKnown_ = ResolvePath(folder, text, MAX_PATH) != FALSE;
        const std::wstring_view path = text;
        text_.assign(path.begin(), path.end());
        while (!text_.empty() && text_.back() == L'\\')
            text_.pop_back();
    }
    RealPlace Entry(const wchar_t* name) const {
        RealPlace entry(*this);
        entry.text_.push_back(L'\\');
        entry.text_.insert(entry.text_.end(), name, name + std::wcslen(name));
        return entry;
    }
    bool Is(const RealPlace& other) const { return text_.size() == other.text_.size() && IsWithin(other); }
    bool IsWithin(const RealPlace& other) const {
        const std::size_t length = other.text_.size();
        return isKnown_ && other.isKnown_ && text_.size() >= length &&
               std::equal(other.text_.begin(), other.text_.end(), text_.begin(),
                          [](wchar_t a, wchar_t b) { return std::towlower(a) == std::towlower(b); }) &&
               (text_.size() == length || text_[length] == L'\\');
    }

  private:
    std::vector<wchar_t> text_;
    bool isKnown_ = false;
};

/// The phone lists all it has.
inline int CountUnlisted(const wchar_t*) {
    return 0;
}

inline BOOL ProgramExists(const wchar_t* program) {
    return ::GetFileAttributesW(program) != INVALID_FILE_ATTRIBUTES;
}

constexpr BOOL OwnsRegistry() {
    return TRUE;
}

using ::CommandBar_Create;
using ::CommandBar_Height;
using ::CommandBar_InsertComboBox;
using ::CommandBar_Show;
using ::CreateDirectoryW;
using ::CreateFileW;
using ::CreateProcessW;
using ::CreateWindowExW;
using ::DeleteAndRenameFile;
using ::DeleteFileW;
using ::EnumFontsW;
using ::EventModify;
using ::FindClose;
using ::FindFirstChangeNotificationW;
using ::FindFirstFileW;
using ::FindNextFileW;
using ::GetDiskFreeSpaceExW;
using ::GetFileAttributesW;
using ::GetNumberFormatW;
using ::GetProcAddressW;
using ::MoveFileW;
using ::RemoveDirectoryW;
using ::SetFileAttributesW;
using ::SetForegroundWindow;
using ::SHCreateMenuBar;
using ::SHCreateShortcut;
using ::ShellExecuteEx;
using ::SHFindMenuBar;
using ::SHGetFileInfo;
using ::SHGetShortcutTarget;
using ::SHGetSpecialFolderPath;
using ::SHHandleWMActivate;
using ::SHHandleWMSettingChange;
using ::SHInitDialog;
using ::SystemIdleTimerReset;

// --- late_bound.cpp: what a Smartphone may lack. Any thread. ---

/// As the platform's; without it FALSE, as if the person had cancelled.
BOOL GetOpenFileNameW(OPENFILENAMEW* request);
BOOL GetSaveFileNameW(OPENFILENAMEW* request);

/// As the platform's; without it no panel is up and the work area is visible.
BOOL SipGetInfo(SIPINFO* info);
/// As the platform's; without it nothing happens.
BOOL SipShowIM(DWORD flags);

/// As the platform's; without it the window with the focus gets a backspace.
void SHSendBackToFocusWindow(UINT message, WPARAM wParam, LPARAM lParam);

/// As the platform's; without it ERROR_NOT_SUPPORTED.
DWORD WNetConnectionDialog1W(CONNECTDLGSTRUCTW* request);
DWORD WNetDisconnectDialog(HWND owner, DWORD type);

inline void CommandBar_Destroy(HWND bar) {
    DestroyWindow(bar);
}
} // namespace ce
