// The workbench itself: a program of its own for the phone's processor, run as the phone's executable is.

#include <cstdio>
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/support/file_places.h"
#include "tests/support/host.h"
#include "tests/support/text.h"

namespace {

constexpr DWORD exitFault = 0xfa17;
constexpr DWORD patience = 60000; // milliseconds

struct Outcome {
    DWORD code = 0;
    std::string report;
};

std::wstring ReportFile() {
    return L"Z:" + Widen(HostVariable("TARVIK_WORK")) + L"/report";
}

std::string TakeReport() {
    std::string text;
    if (std::FILE* file = _wfopen(ReportFile().c_str(), L"rb")) {
        text.resize(8192);
        text.resize(std::fread(text.data(), 1, text.size(), file));
        std::fclose(file);
        _wremove(ReportFile().c_str());
    }
    return text;
}

enum class Checks { Cheap, All };

/// Runs the test program with this command line.
Outcome Start(const std::wstring& what, Checks checks) {
    const std::string program = HostVariable("TARVIK_ARM_PROGRAM");
    SetEnvironmentVariableW(L"TARVIK_PHONE_PROGRAM", Widen(program + ".exe").c_str());
    SetEnvironmentVariableW(L"TARVIK_PHONE_SYMBOLS", Widen(program + ".elf").c_str());
    SetEnvironmentVariableW(L"TARVIK_PHONE_REPORT", Widen(HostVariable("TARVIK_WORK") + "/report").c_str());
    SetEnvironmentVariableW(L"TARVIK_PHONE_CHECKS", checks == Checks::All ? L"1" : nullptr);
    constexpr wchar_t runner[] = L"E:\\Program Files\\Tarvik File Manager\\TarvikFileManager.exe";
    std::wstring line = L"runner " + what;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    EXPECT_TRUE(CreateProcessW(runner, line.data(), nullptr, nullptr, FALSE, 0, nullptr, L"E:\\", &startup,
                               &started));
    Outcome outcome;
    EXPECT_EQ(WaitForSingleObject(started.hProcess, patience), WAIT_OBJECT_0) << "it does not end";
    GetExitCodeProcess(started.hProcess, &outcome.code);
    TerminateProcess(started.hProcess, 1);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    outcome.report = TakeReport();
    return outcome;
}

struct Fault {
    const wchar_t* what;
    std::string reported;
    std::string place; // of the instruction, which is the first line of the callers
    std::string caller;
    Checks checks = Checks::Cheap;
};

void PrintTo(const Fault& fault, std::ostream* stream) {
    *stream << Narrow(fault.what);
}

class Faults : public testing::TestWithParam<Fault> {};

void ExpectToRun(const wchar_t* what, Checks checks) {
    const Outcome outcome = Start(what, checks);
    EXPECT_EQ(outcome.code, 0u) << "the line of arm_program.cpp that does not hold";
    EXPECT_EQ(outcome.report, "");
}

TEST(Workbench, RunsWhatGoesWell) {
    ExpectToRun(L"well", Checks::Cheap);
    ExpectToRun(L"give-all-back", Checks::Cheap);
    ExpectToRun(L"short-answers", Checks::Cheap);
}

TEST(Workbench, RunsWhatGoesWellWithAllChecks) {
    ExpectToRun(L"well", Checks::All);
    ExpectToRun(L"read-written", Checks::All);
}

TEST_P(Faults, EndTheProgramWithTheirExactPlace) {
    const Fault& fault = GetParam();
    const Outcome outcome = Start(fault.what, fault.checks);
    EXPECT_EQ(outcome.code, exitFault);
    EXPECT_NE(outcome.report.find(fault.reported), std::string::npos) << outcome.report;
    const std::size_t first = outcome.report.find('\n') + 1;
    EXPECT_NE(outcome.report.substr(first, outcome.report.find('\n', first) - first).find(fault.place),
              std::string::npos)
        << outcome.report;
    EXPECT_NE(outcome.report.find(fault.caller), std::string::npos) << outcome.report;
}

INSTANTIATE_TEST_SUITE_P(
    Of, Faults,
    testing::Values(
        Fault{L"read-null", "a read of 00000000", "ReadAtThird+0x8", "Do("},
        Fault{L"read-wild", "a read of fffff000", "ReadAtThird+0x8", "Do("},
        Fault{L"read-freed", "a read of ", "ReadAtThird+0x8", "ReadFreed("},
        Fault{L"write-null", "a write to 00000004", "WriteAtThird+0x8", "Do("},
        Fault{L"write-code", "a write to ", "WriteAtThird+0x8", "Do("},
        Fault{L"call-null", "a call of 00000000, where there is no code", "00000000", "Do("},
        Fault{L"call-data", ", where there is no code", "", "Do("},
        Fault{L"undefined", "an instruction that the phone does not know", "UndefinedAtThird+0x8", "Do("},
        Fault{L"overflow", "the stack is at its end", "Deep(int)+", "Deep(int)+"},
        Fault{L"write-behind", "a block of 21 bytes was written beside", "free", "Do("},
        Fault{L"free-twice", "no block of the heap, or no more", "free", "Do("},
        Fault{L"close-twice", "a handle is closed that is not open", "CloseHandle", "Do("},
        Fault{L"leave-brush", "a brush is left at the end, made by", "CreateSolidBrush", "LeaveBrush("},
        Fault{L"leave-window", "a window is left at the end, made by", "CreateWindowExW", "LeaveWindow("},
        Fault{L"read-unaligned", "an unaligned load or store at ", "ReadAtThird+0x8", "Do(", Checks::All},
        Fault{L"read-heap-freed", "in a block of the heap that was freed", "ReadAtThird+0x8",
              "ReadHeapFreed(", Checks::All},
        Fault{L"read-beside", "beside a block of the heap", "ReadAtThird+0x8", "Do(", Checks::All},
        Fault{L"read-unwritten", "which was never written since it came from the heap", "ReadAtThird+0x8",
              "ReadUnwritten(", Checks::All},
        Fault{L"copy-beside", "beside a block of the heap", "mem", "CopyBeside(", Checks::All},
        Fault{L"in-callback", "a read of 00000010", "ReadAtThird+0x8", "FaultingProcedure("},
        Fault{L"in-thread", "a read of 00000000", "ReadAtThird+0x8", "ReadNull("}),
    [](const testing::TestParamInfo<Fault>& of) {
        std::string name = Narrow(of.param.what);
        std::erase(name, '-');
        return name;
    });

} // namespace
