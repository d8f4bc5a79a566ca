#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/hand.h"
#include "platform/desktop/host_quoting.h"
#include "platform/desktop/noted_files.h"

namespace {

/// Makes the root of the drive that the program lies on the current folder, so that "\Anything" is a path on
/// it in every file call.
void MakeOwnDriveTheRoot() {
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    if (program[0] == L'\0' || program[1] != L':')
        return;
    program[2] = L'\\';
    program[3] = L'\0';
    SetCurrentDirectoryW(program);
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* commandLine, int) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); // the phone asks for no missing medium
    MakeOwnDriveTheRoot();
    SweepLeftovers();
    SweepNotedFiles();
    UndoHostQuoting(commandLine);
    StartDeviceShell(instance);
    return ProgramMain(instance, commandLine);
}
