#include "platform/ce_api.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/desktop/device_path.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/rooted_path.h"

namespace {

/// Room for any path that the host's dialog may give.
constexpr DWORD dialogCapacity = 32 * 1024;

/// A path of the device's made full; any other text, a bare name, as it is, terminated.
std::vector<wchar_t> DialogPath(const wchar_t* path) {
    std::wstring_view text = path != nullptr ? path : L"";
    const DevicePath device(path);
    if (text.starts_with(L'\\'))
        text = device.WithDrive();
    std::vector<wchar_t> copy(text.begin(), text.end());
    copy.push_back(L'\0');
    return copy;
}

/// The dialog tells this child of it when it has made its controls, and when it shows another folder.
UINT_PTR CALLBACK FileDialogHook(HWND child, UINT message, WPARAM, LPARAM lParam) {
    if (message != WM_NOTIFY)
        return 0;
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    if (code == CDN_INITDONE)
        FitFileDialog(GetParent(child));
    if (code == CDN_INITDONE || code == CDN_FOLDERCHANGE)
        ShowPlaces(GetParent(child));
    return 0;
}

/// Runs one of the host's file dialogs for a program that knows one root and no current folder.
BOOL RunFileDialog(OPENFILENAMEW& request, BOOL(WINAPI* dialog)(OPENFILENAMEW*)) {
    std::vector<wchar_t> file = DialogPath(request.lpstrFile);
    const std::vector<wchar_t> folder = DialogPath(request.lpstrInitialDir);
    file.resize(std::max<std::size_t>(file.size(), dialogCapacity));

    OPENFILENAMEW host = request;
    host.lStructSize = sizeof(host);
    host.Flags |= OFN_NOCHANGEDIR | OFN_EXPLORER | OFN_ENABLEHOOK;
    host.FlagsEx = OFN_EX_NOPLACESBAR;
    host.lpfnHook = FileDialogHook;
    host.lpstrFile = file.data();
    host.nMaxFile = static_cast<DWORD>(file.size());
    host.lpstrInitialDir = request.lpstrInitialDir != nullptr ? folder.data() : nullptr;
    // The host's dialog goes everywhere, the phone's has only the device.
    do {
        if (!dialog(&host))
            return FALSE;
    } while (!DevicePath(file.data()));

    const std::wstring_view full = file.data();
    const std::wstring_view chosen = RootedPart(full);
    if (request.lpstrFile == nullptr || chosen.size() >= request.nMaxFile)
        return FALSE;
    *std::copy(chosen.begin(), chosen.end(), request.lpstrFile) = L'\0';
    const WORD drive = static_cast<WORD>(full.size() - chosen.size());
    request.nFilterIndex = host.nFilterIndex;
    request.nFileOffset = static_cast<WORD>(host.nFileOffset - drive);
    request.nFileExtension = host.nFileExtension > drive ? static_cast<WORD>(host.nFileExtension - drive) : 0;
    return TRUE;
}

} // namespace

namespace ce {

BOOL GetSaveFileNameW(OPENFILENAMEW* request) {
    return RunFileDialog(*request, ::GetSaveFileNameW);
}

BOOL GetOpenFileNameW(OPENFILENAMEW* request) {
    return RunFileDialog(*request, ::GetOpenFileNameW);
}

} // namespace ce
