#include "companions/workbench/calls.h"

#include <windows.h>

#include <string_view>

#include "companions/workbench/heap.h"
#include "companions/workbench/leftovers.h"
#include "companions/workbench/replacements.h"
#include "platform/ce_api.h"

namespace {

struct Call {
    std::string_view name;
    HostFunction function;
};

template <class Function>
constexpr HostFunction Of(Function* function) {
    return reinterpret_cast<HostFunction>(function);
}

const Call calls[] = {
    // What the phone's structures, colours, callbacks or handles make different.
    {"CloseHandle", Of(replaced::CloseHandle)},
    {"CreateThread", Of(replaced::CreateThread)},
    {"DialogBoxIndirectParamW", Of(replaced::DialogBoxIndirectParamW)},
    {"EnumFontsW", Of(replaced::EnumFontsW)},
    {"FindClose", Of(replaced::FindClose)},
    {"FindFirstFileW", Of(replaced::FindFirstFileW)},
    {"FindNextFileW", Of(replaced::FindNextFileW)},
    {"free", Of(FreeBlock)},
    {"GetAsyncKeyState", Of(replaced::GetAsyncKeyState)},
    {"GetKeyState", Of(replaced::GetKeyState)},
    {"GetModuleHandleW", Of(replaced::GetModuleHandleW)},
    {"GetProcAddressW", Of(replaced::GetProcAddressW)},
    {"GetSysColor", Of(replaced::GetSysColor)},
    {"malloc", Of(AllocateBlock)},
    {"memcpy", Of(replaced::MoveBlock)},
    {"memmove", Of(replaced::MoveBlock)},
    {"memset", Of(replaced::FillBlock)},
    {"RegCloseKey", Of(replaced::RegCloseKey)},
    {"RegisterClassW", Of(replaced::RegisterClassW)},
    {"SetWindowLongW", Of(replaced::SetWindowLongW)},
    {"ShowWindow", Of(replaced::ShowWindow)},
    {"towlower", Of(replaced::towlower)},
    {"TerminateProcess", Of(replaced::TerminateProcess)},
    // What is to be given back at the end.
    {"CommandBar_Create", Of(replaced::CommandBar_Create)},
    {"CreateFontIndirectW", Of(replaced::CreateFontIndirectW)},
    {"CreatePopupMenu", Of(replaced::CreatePopupMenu)},
    {"CreateSolidBrush", Of(replaced::CreateSolidBrush)},
    {"CreateStatusWindowW", Of(replaced::CreateStatusWindowW)},
    {"CreateWindowExW", Of(replaced::CreateWindowExW)},
    {"GetDC", Of(replaced::GetDC)},
    {"ImageList_Create", Of(replaced::ImageList_Create)},
    {"ImageList_Destroy", Of(replaced::ImageList_Destroy)},
    {"LoadMenuW", Of(replaced::LoadMenuW)},
    {"ReleaseDC", Of(replaced::ReleaseDC)},
    // What the desktop's device shell does.
    {"CommandBar_Height", Of(ce::CommandBar_Height)},
    {"CommandBar_InsertComboBox", Of(ce::CommandBar_InsertComboBox)},
    {"CommandBar_Show", Of(ce::CommandBar_Show)},
    {"CreateDirectoryW", Of(ce::CreateDirectoryW)},
    {"CreateFileW", Of(ce::CreateFileW)},
    {"CreateProcessW", Of(ce::CreateProcessW)},
    {"DeleteAndRenameFile", Of(ce::DeleteAndRenameFile)},
    {"DeleteFileW", Of(ce::DeleteFileW)},
    {"EventModify", Of(ce::EventModify)},
    {"FindFirstChangeNotificationW", Of(ce::FindFirstChangeNotificationW)},
    {"GetDiskFreeSpaceExW", Of(ce::GetDiskFreeSpaceExW)},
    {"GetFileAttributesW", Of(ce::GetFileAttributesW)},
    {"GetNumberFormatW", Of(ce::GetNumberFormatW)},
    {"GetOpenFileNameW", Of(ce::GetOpenFileNameW)},
    {"GetSaveFileNameW", Of(ce::GetSaveFileNameW)},
    {"MoveFileW", Of(ce::MoveFileW)},
    {"RemoveDirectoryW", Of(ce::RemoveDirectoryW)},
    {"SetFileAttributesW", Of(ce::SetFileAttributesW)},
    {"SetForegroundWindow", Of(ce::SetForegroundWindow)},
    {"SHCreateMenuBar", Of(ce::SHCreateMenuBar)},
    {"SHCreateShortcut", Of(ce::SHCreateShortcut)},
    {"ShellExecuteEx", Of(ce::ShellExecuteEx)},
    {"SHFindMenuBar", Of(ce::SHFindMenuBar)},
    {"SHGetFileInfo", Of(ce::SHGetFileInfo)},
    {"SHGetShortcutTarget", Of(ce::SHGetShortcutTarget)},
    {"SHGetSpecialFolderPath", Of(ce::SHGetSpecialFolderPath)},
    {"SHInitDialog", Of(ce::SHInitDialog)},
    {"SipGetInfo", Of(ce::SipGetInfo)},
    {"SipShowIM", Of(ce::SipShowIM)},
    {"SystemIdleTimerReset", Of(ce::SystemIdleTimerReset)},
    {"WNetConnectionDialog1W", Of(ce::WNetConnectionDialog1W)},
    {"WNetDisconnectDialog", Of(ce::WNetDisconnectDialog)},
};

/// Of the phone's shell library.
HostFunction ByNumber(unsigned number) {
    switch (number) {
    case 83:
        return Of(ce::SHHandleWMSettingChange);
    case 84:
        return Of(ce::SHHandleWMActivate);
    case 97:
        return Of(ce::SHSendBackToFocusWindow);
    default:
        return nullptr;
    }
}

HostFunction OfTheHost(const char* name) {
    for (const wchar_t* library : {L"kernel32", L"user32", L"gdi32", L"advapi32", L"comctl32", L"msvcrt"})
        if (const FARPROC found = GetProcAddress(LoadLibraryW(library), name))
            return Of(found);
    return nullptr;
}

} // namespace

HostFunction FindCall(const char* name, unsigned number) {
    if (!name)
        return ByNumber(number);
    for (const Call& call : calls)
        if (call.name == name)
            return call.function;
    return OfTheHost(name);
}
