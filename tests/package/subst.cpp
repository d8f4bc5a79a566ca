// Stands in for Windows' own subst, whose namesake does nothing in Wine: gives a folder of drive z: a drive
// letter, or takes it back. Wine's drives are links, and those are made by a program of the host.
//
//   subst T: FOLDER
//   subst T: /d
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

/// Programs of the host are not waited for: what they bring is.
bool RunAndAwait(const wchar_t* program, std::wstring command, const std::wstring& drive, bool comes) {
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        return false;
    for (int tries = 0; tries < 400; ++tries) {
        if ((GetFileAttributesW((drive + L"\\").c_str()) != INVALID_FILE_ATTRIBUTES) == comes)
            return true;
        Sleep(50);
    }
    return false;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    const wchar_t* prefix = _wgetenv(L"WINEPREFIX");
    if (count != 3 || !prefix)
        return 1;
    const std::wstring drive = arguments[1];
    std::wstring folder = arguments[2];
    const std::wstring link =
        L"\"" + std::wstring(prefix) + L"/dosdevices/" + static_cast<wchar_t>(drive[0] | 0x20) + L":\"";
    if (folder == L"/d")
        return RunAndAwait(L"Z:\\bin\\rm", L"rm " + link, drive, false) ? 0 : 1;
    std::replace(folder.begin(), folder.end(), L'\\', L'/');
    return RunAndAwait(L"Z:\\bin\\ln", L"ln -s \"" + folder.substr(2) + L"\" " + link, drive, true) ? 0 : 1;
}
