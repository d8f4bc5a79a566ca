#include "tests/support/host.h"

#include <cstdio>
#include <stdexcept>

#include <windows.h>

#include "tests/support/text.h"
#include "tests/support/waiting.h"

namespace {

constexpr int hostPatience = 60000; // milliseconds

/// A host path as Wine shows it.
std::wstring Seen(const std::string& hostPath) {
    return L"Z:" + Widen(hostPath);
}

std::string ReadWhole(const std::string& hostPath) {
    FILE* file = _wfopen(Seen(hostPath).c_str(), L"rb");
    if (!file)
        return {};
    std::string text(4096, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file));
    std::fclose(file);
    return text;
}

void WriteWhole(const std::string& hostPath, const std::string& text) {
    FILE* file = _wfopen(Seen(hostPath).c_str(), L"wb");
    if (!file)
        throw std::runtime_error("cannot write " + hostPath);
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
}

} // namespace

std::string HostVariable(const char* name) {
    const wchar_t* value = _wgetenv(Widen(name).c_str());
    return value ? Narrow(value) : std::string();
}

void RunOnHost(const std::string& script) {
    static int number = 0;
    const std::string base = HostVariable("TARVIK_WORK") + "/host" + std::to_string(++number);
    const std::string scriptFile = base + ".sh";
    const std::string outputFile = base + ".out";
    const std::string endFile = base + ".end";
    // Wine gives no handle to wait on for a program of the host: its end is a file that appears whole.
    WriteWhole(scriptFile, "( set -e\ncd \"$TARVIK_DEVICE\"\n" + script + "\n) >" + outputFile +
                               " 2>&1\necho $? >" + endFile + ".new\nmv " + endFile + ".new " + endFile +
                               "\n");
    std::wstring commandLine = L"Z:\\bin\\sh " + Widen(scriptFile);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(L"Z:\\bin\\sh", commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &started))
        throw std::runtime_error("the host's shell does not start");
    WaitFor(
        "for the host to run: " + script,
        [&] { return GetFileAttributesW(Seen(endFile).c_str()) != INVALID_FILE_ATTRIBUTES; }, hostPatience);
    if (std::atoi(ReadWhole(endFile).c_str()) != 0)
        throw std::runtime_error("the host failed at:\n" + script + "\n" + ReadWhole(outputFile));
}

std::string KeepScreenshot(const std::string& name) {
    std::string file = name;
    for (char& character : file)
        if (character == '/')
            character = '.';
    const std::string path =
        HostVariable("TARVIK_FAILURES") + "/" + file + "." + HostVariable("TARVIK_SCREEN") + ".png";
    RunOnHost("import -window root '" + path + "'");
    return path;
}

bool RunsPhoneProgram() {
    return !HostVariable("TARVIK_PHONE_PROGRAM").empty();
}

std::string TakePhoneReport() {
    const std::string path = HostVariable("TARVIK_PHONE_REPORT");
    if (path.empty())
        return {};
    const std::string report = ReadWhole(path);
    _wremove(Seen(path).c_str());
    return report;
}
