// Measures the program in a process of its own: ratios to the bare platform calls of the same run, and to
// itself with ten times as much.
//
//   benchmarks.exe [NAME...]    ends with 1 when a ratio is over its limit

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>

#include "app/app_state.h"
#include "app/main_window.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "common/text_format.h"
#include "platform/desktop/device_shell.h"

namespace {

struct Measurement {
    std::wstring_view name;
    void (*run)();
};

constexpr Measurement measurements[] = {
    {L"listing", MeasureListing},   {L"sorting", MeasureSorting}, {L"icons", MeasureIcons},
    {L"tree", MeasureTree},         {L"search", MeasureSearch},   {L"jobs", MeasureJobs},
    {L"archives", MeasureArchives},
};

/// The program as it starts, but for its message loop.
void StartProgram() {
    HINSTANCE instance = GetModuleHandleW(nullptr);
    StartDeviceShell(instance);
    LoadDecimalSeparator();
    appState.changeWatcher.StartWatcher();
    appState.jobWorker.Prepare();
    appState.instance = instance;
    CreateMainWindow();
    ShowMainWindow();
    appState.listWindow = appState.fileList.Window();
}

void DispatchWaitingMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool IsKnown(std::wstring_view name) {
    return std::ranges::find(measurements, name, &Measurement::name) != std::end(measurements);
}

bool IsWanted(std::wstring_view name, int argumentCount, wchar_t** arguments) {
    for (int index = 1; index < argumentCount; ++index) {
        if (name == arguments[index])
            return true;
    }
    return argumentCount < 2;
}

} // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    if (!SetCurrentDirectoryW(L"E:\\")) {
        std::puts("There is no drive E: for the device. Start this with ./bench.");
        return 1;
    }
    for (int index = 1; index < argumentCount; ++index) {
        if (!IsKnown(arguments[index])) {
            std::printf("There is no measurement \"%ls\".\n", arguments[index]);
            return 1;
        }
    }
    StartProgram();
    for (const Measurement& measurement : measurements) {
        DispatchWaitingMessages();
        if (IsWanted(measurement.name, argumentCount, arguments))
            measurement.run();
    }
    appState.changeWatcher.StopWatcher();
    return AnyOverLimit() ? 1 : 0;
}
