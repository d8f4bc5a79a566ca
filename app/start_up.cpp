#include "app/start_up.h"

#include <cwchar>

#include "app/app_state.h"
#include "app/main_window.h"
#include "app/start_folder.h"
#include "common/text_format.h"
#include "fileops/archiver.h"
#include "resources/resource.h"

namespace {

/// The handle by which a window comes forward together with what it owns, such as an open dialog.
HWND WithOwned(HWND window) {
    return reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(window) | 1);
}

/// Brings the running instance forward and shows it the folder this start was given.
void HandOverToRunningInstance() {
    HWND window = FindWindowW(instanceName, nullptr);
    if (!window)
        return;
    ce::SetForegroundWindow(WithOwned(window));
    if (!appState.startPath)
        return;
    COPYDATASTRUCT data{};
    data.dwData = COPYDATA_OPEN_FOLDER;
    data.cbData = static_cast<DWORD>((std::wcslen(appState.startPath) + 1) * sizeof(wchar_t));
    data.lpData = appState.startPath;
    SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
}

int RunMessageLoop() {
    HACCEL accelerators = LoadAcceleratorsW(appState.instance, MAKEINTRESOURCEW(IDR_ACCELERATORS));
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorW(appState.mainWindow, accelerators, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

} // namespace

int ProgramMain(HINSTANCE instance, wchar_t* commandLine) {
    appState.startPath = ParseCommandLine(commandLine);

    // Held until the process ends: it is what keeps a second instance from starting.
    CreateMutexW(nullptr, FALSE, instanceName);
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
        HandOverToRunningInstance();
        return 0;
    }
    LoadDecimalSeparator();
    appState.archivers = FindArchivers();
    appState.changeWatcher.StartWatcher();
    appState.jobWorker.Prepare();
    appState.instance = instance;
    CreateMainWindow();
    ShowMainWindow();
    appState.listWindow = appState.fileList.Window();
    const int exitCode = RunMessageLoop();
    appState.changeWatcher.StopWatcher();
    return exitCode;
}
