// The desktop program with the phone's own executable in the place of the program's code: it starts as the
// desktop program does, and then the emulated processor runs the executable from its entry.
//
// In the environment, as files of the host: TARVIK_PHONE_PROGRAM, the executable; TARVIK_PHONE_SYMBOLS, the
// linker's file with its names; TARVIK_PHONE_CPU, the processor's library; TARVIK_PHONE_REPORT, which a fault
// is written to. TARVIK_PHONE_CHECKS asks for the expensive checks.

#include <cstdlib>
#include <string>

#include "companions/workbench/calls.h"
#include "companions/workbench/ending.h"
#include "companions/workbench/image.h"
#include "companions/workbench/processor.h"
#include "companions/workbench/shadow.h"
#include "companions/workbench/thunks.h"
#include "companions/workbench/traps.h"
#include "platform/ce_api.h"

namespace {

/// A file of the host by its name in the environment; nothing when it is not there.
std::wstring HostFile(const wchar_t* variable) {
    const wchar_t* name = _wgetenv(variable);
    if (!name || !*name)
        return {};
    std::wstring path = std::wstring(L"Z:") + name;
    for (wchar_t& character : path)
        if (character == L'/')
            character = L'\\';
    return path;
}

/// What an import that the host has nothing for leads to, so that it counts only when it is called.
void Missing() {
    EndAfterCheck("a call of what is missing here", RegistersOfCall());
}

std::uint32_t BindImport(const char* library, const char* name, unsigned number) {
    const HostFunction found = FindCall(name, number);
    return TrapFor(found ? found : reinterpret_cast<HostFunction>(Missing), name ? name : library);
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* what) {
    const EXCEPTION_RECORD& record = *what->ExceptionRecord;
    if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION || !ProcessorRuns())
        return EXCEPTION_CONTINUE_SEARCH;
    CpuFault fault{};
    fault.stop = record.ExceptionInformation[0] ? CpuBadWrite : CpuBadRead;
    fault.address = static_cast<std::uint32_t>(record.ExceptionInformation[1]);
    const CONTEXT& context = *what->ContextRecord;
    LocateFault(context.Eip, reinterpret_cast<const std::uintptr_t*>(context.Esp), fault.registers);
    EndAfterFault(fault);
}

/// What the host faults over when the phone's program has called it.
LONG WINAPI OnUnhandled(EXCEPTION_POINTERS* what) {
    if (const std::uint32_t* registers = RegistersOfCall())
        EndAfterCheck("a call on which the host faults", registers);
    static_cast<void>(what);
    return EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

int ProgramMain(HINSTANCE, wchar_t* commandLine) {
    PrepareReports(HostFile(L"TARVIK_PHONE_SYMBOLS"), HostFile(L"TARVIK_PHONE_REPORT"));
    const Image image = MapImage(HostFile(L"TARVIK_PHONE_PROGRAM").c_str(), BindImport);
    SetGuestCode(image.codeBegin, image.codeEnd);
    if (_wgetenv(L"TARVIK_PHONE_CHECKS"))
        CheckEachAccess();
    PrepareProcessors(HostFile(L"TARVIK_PHONE_CPU").c_str(), image);
    AddVectoredExceptionHandler(TRUE, OnException);
    SetUnhandledExceptionFilter(OnUnhandled);

    const std::uint32_t arguments[] = {image.base, 0, reinterpret_cast<std::uint32_t>(commandLine), SW_SHOW};
    return static_cast<int>(CallGuest(image.entry, arguments, 4));
}
