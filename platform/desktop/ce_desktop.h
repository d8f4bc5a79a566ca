#pragma once
// The phone calls as the desktop carries them out. Signatures are the platform's own; what is said here is
// only what the device shell adds or does differently. All run on the user-interface thread unless said.

#include <memory>
#include <vector>

#include "platform/ce_types.h"
#include "platform/tree_steps.h"

// The phone has these names without a suffix; here they are calls of the shell's, not names for others.
#undef SHGetFileInfo
#undef ShellExecuteEx
#undef SHGetSpecialFolderPath

namespace ce {

// --- device_path.cpp: where the device ends. Any thread. ---

/// Brings a path that comes from outside, typed, stored, handed over or a shortcut's, into the device's own
/// form: "\Folder\name", the root as "\". Letters stay as they are, and so does a backslash at the end.
/// False, with `resolved` empty, for a path that leads off the device: to another drive, a server, or the
/// host. All of the file calls here refuse such a path with ERROR_PATH_NOT_FOUND.
BOOL ResolvePath(const wchar_t* path, wchar_t* resolved, int capacity);

// --- places.cpp. Any thread. ---

/// Where a folder really is, however it is reached: by any spelling, through links and storage cards. Two
/// folders are known as one by it, and one as lying within the other. What is not there is where its path
/// says.
class RealPlace {
  public:
    explicit RealPlace(const wchar_t* folder);
    /// The place of an entry of this folder, by its own name: of a link, not of what it leads to.
    RealPlace Entry(const wchar_t* name) const;

    bool Is(const RealPlace& other) const;
    /// Whether this is `other` or lies below it.
    bool IsWithin(const RealPlace& other) const;

  private:
    std::vector<wchar_t> text_; // on the host, without a backslash at the end
    bool isKnown_ = false;      // not for a path that leads off the device
};

// --- file_calls.cpp: as the host's, kept on the device. Any thread. ---

/// Makes no file whose name the phone does not take, and opens no pipe or device of the host's.
HANDLE CreateFileW(const wchar_t* path, DWORD access, DWORD sharing, SECURITY_ATTRIBUTES* security,
                   DWORD creation, DWORD flags, HANDLE pattern);
/// Fails for a name that the phone does not take.
BOOL CreateDirectoryW(const wchar_t* path, SECURITY_ATTRIBUTES* security);
HANDLE FindFirstChangeNotificationW(const wchar_t* folder, BOOL subfolders, DWORD filter);
BOOL GetDiskFreeSpaceExW(const wchar_t* folder, ULARGE_INTEGER* available, ULARGE_INTEGER* total,
                         ULARGE_INTEGER* free);

// --- file_system.cpp: one root, storage cards, files in ROM. Any thread. ---

/// Finds as the phone does: never "." or "..", nor what no path would lead to (entry_names.h). A linked
/// folder of the root has the attributes of a storage card (0x100, no link bit); links further down keep
/// FILE_ATTRIBUTE_REPARSE_POINT; a file lying directly in \Windows has FILE_ATTRIBUTE_INROM. Close the handle
/// with ce::FindClose.
HANDLE FindFirstFileW(const wchar_t* pattern, WIN32_FIND_DATAW* found);
BOOL FindNextFileW(HANDLE find, WIN32_FIND_DATAW* found);
BOOL FindClose(HANDLE find);

/// How many entries that the pattern matches ce::FindFirstFileW leaves out because no path leads to them.
int CountUnlisted(const wchar_t* pattern);

/// The attributes as ce::FindFirstFileW gives them. The root ("\" or "") is a plain folder.
DWORD GetFileAttributesW(const wchar_t* path);

/// Sets what the host can keep; the card, ROM and link bits are left as they are. What is behind a link keeps
/// its attributes.
BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes);

/// Removes an empty folder, or a link to a folder and nothing behind it. A storage card's folder stays.
BOOL RemoveDirectoryW(const wchar_t* path);

/// Deletes a file, or a link to one and not what is behind it.
BOOL DeleteFileW(const wchar_t* path);

/// Renames or moves a file, a folder, or a link alone: what is behind a link stays where it is. From one
/// volume to another it fails with ERROR_NOT_SAME_DEVICE, where a copy that could be watched and stopped does
/// it.
BOOL MoveFileW(const wchar_t* from, const wchar_t* to);

/// Puts the file `from` in the place of the file `to`, which is there. The name `to` has one of both at any
/// moment. From one volume to another it fails with ERROR_NOT_SAME_DEVICE.
BOOL DeleteAndRenameFile(const wchar_t* to, const wchar_t* from);

// --- hand_steps.cpp ---

/// The host's own way to take whole trees, which leaves nothing to what a listing told. None on Windows.
std::unique_ptr<TreeSteps> BeginTreeSteps();

// --- shell.cpp. What it starts or tells of lies on the device, or on the host's system drive, where the
// registry's programs may be. ---

/// Whether a program that the registry names is there.
BOOL ProgramExists(const wchar_t* program);

DWORD_PTR SHGetFileInfo(const wchar_t* path, DWORD attributes, SHFILEINFOW* info, UINT size, UINT flags);
BOOL ShellExecuteEx(SHELLEXECUTEINFOW* info);
BOOL SHGetSpecialFolderPath(HWND owner, wchar_t* path, int folder, BOOL create);
BOOL CreateProcessW(const wchar_t* application, wchar_t* commandLine, SECURITY_ATTRIBUTES* process,
                    SECURITY_ATTRIBUTES* thread, BOOL inherit, DWORD flags, void* environment,
                    wchar_t* directory, STARTUPINFOW* startup, PROCESS_INFORMATION* information);
BOOL GetSaveFileNameW(OPENFILENAMEW* request);
BOOL GetOpenFileNameW(OPENFILENAMEW* request);
FARPROC GetProcAddressW(HMODULE library, const wchar_t* name);
void SystemIdleTimerReset();
BOOL EventModify(HANDLE event, DWORD function);

// --- own_registry.cpp ---

/// Whether the registry is the device's own: it has a name for the device. A person's own Windows, or another
/// Wine prefix, has none; nothing is written there that nobody asked for.
BOOL OwnsRegistry();

// --- number_format.cpp ---

/// As GetNumberFormatW; without a format of the caller's, every group of digits is set apart and the number
/// is rounded first, where the host sets apart only the last group.
int GetNumberFormatW(LCID locale, DWORD flags, const wchar_t* number, const NUMBERFMTW* format, wchar_t* text,
                     int capacity);

// --- fonts.cpp ---

/// As EnumFontsW; without a name, each typeface is reported once, however many weights the host has of it.
int EnumFontsW(HDC context, const wchar_t* name, FONTENUMPROCW report, LPARAM parameter);

// --- shortcuts.cpp: the phone's text shortcut files. Any thread. ---

/// Writes `target` as it stands (the caller quotes) to a new shortcut file. Fails when the file exists.
BOOL SHCreateShortcut(const wchar_t* shortcut, const wchar_t* target);

/// Reads a shortcut's target text, quotes included, into `target` of `capacity` characters. Also reads the
/// desktop shell's own binary shortcuts. Fails, with `target` empty, on anything else.
BOOL SHGetShortcutTarget(const wchar_t* shortcut, wchar_t* target, int capacity);

// --- menu_bar.cpp: the soft keys ---

/// Makes the soft-key bar of `hwndParent` at the screen's bottom from an RCDATA menu-bar resource. It lives
/// as long as its parent. Soft keys send WM_COMMAND to the parent; popups are tracked with it as owner.
BOOL SHCreateMenuBar(SHMENUBARINFO* info);
HWND SHFindMenuBar(HWND parent);

// --- windows.cpp: places on the screen ---

/// As CreateWindowExW; a window without a parent and with CW_USEDEFAULT places fills the work area between
/// the title strip and the soft keys, without frame or caption.
HWND CreateWindowExW(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter);

/// Brings a window forward. With the lowest bit of its handle set, as on the phone, together with what it
/// owns; the program of such a window sees to it that this has the keys.
BOOL SetForegroundWindow(HWND window);

// --- dialogs.cpp ---

/// Sizes the dialog to the work area and, with SHIDIF_SIPDOWN, puts the input panel away.
BOOL SHInitDialog(SHINITDLGINFO* info);

// --- input_panel.cpp ---

BOOL SipGetInfo(SIPINFO* info);
BOOL SipShowIM(DWORD flags);
BOOL SHHandleWMSettingChange(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info);
BOOL SHHandleWMActivate(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info, DWORD flags);

/// Answers the Back key reported by WM_HOTKEY: an edit field with the focus erases, any other window gets
/// the key.
void SHSendBackToFocusWindow(UINT message, WPARAM wParam, LPARAM lParam);

// --- command_bar.cpp ---

HWND CommandBar_Create(HINSTANCE instance, HWND parent, int id);
HWND CommandBar_InsertComboBox(HWND bar, HINSTANCE instance, int width, UINT style, WORD id, WORD button);
int CommandBar_Height(HWND bar);
void CommandBar_Destroy(HWND bar);
BOOL CommandBar_Show(HWND bar, BOOL show);

// --- network.cpp ---

DWORD WNetConnectionDialog1W(CONNECTDLGSTRUCTW* request);
DWORD WNetDisconnectDialog(HWND owner, DWORD type);

} // namespace ce
