#include <array>
#include <cstdlib>
#include <string>

#include "benchmarks/job_calls.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "fileops/archive_commands.h"
#include "fileops/archiver.h"
#include "tests/support/host.h"

namespace {

/// The library lies where the program does, one folder above this one.
void FindLibrary() {
    std::array<wchar_t, 1024> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    std::wstring folder(path.data());
    for (int up = 0; up < 2; ++up)
        folder.resize(folder.rfind(L'\\'));
    SetDllDirectoryW(folder.c_str());
}

/// How long a script of the host's takes after a rest, in microseconds, by the host's own clock.
double HostTimeOf(const std::string& script) {
    Rest();
    RunOnHost("start=$(date +%s%N)\n" + script + "\necho $((($(date +%s%N) - start) / 1000)) >took");
    std::array<char, 32> text{};
    const HANDLE file =
        CreateFileW(L"\\took", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD read = 0;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size() - 1), &read, nullptr);
    CloseHandle(file);
    return std::atof(text.data());
}

void Pack() {
    const OwnedText list = ArchiverFileList(EntryNamed(L"Source", ItemKind::Folder));
    RunArchiver(ArchiveType::Zip, CompressCommand(L"\\Temp\\own.zip", L"\\Temp", list.get()).get());
}

void Unpack() {
    RunArchiver(ArchiveType::Zip, ExtractCommand(L"\\Temp\\own.zip", L"\\Temp\\Out").get());
}

/// A line of a script: what is not needed any more goes with the device, for deleting takes long.
std::string PutAside(const std::string& name) {
    return "mv " + name + " $(mktemp -d aside.XXXXXX)\n";
}

struct Times {
    double pack, unpack;
};

Times OwnTimes() {
    const Times times{WallTimeOf(Pack), WallTimeOf(Unpack)};
    RunOnHost("diff -r Temp/Source Temp/Out/Source\n" + PutAside("Temp/Out"));
    return times;
}

Times HostTimes(const char* pack, const char* unpack) {
    const Times times{HostTimeOf(std::string("cd Temp; ") + pack + " Source; cd .."),
                      HostTimeOf(std::string("cd Temp; ") + unpack + "; cd ..")};
    RunOnHost(PutAside("Temp/Out") + PutAside("Temp/host.zip"));
    return times;
}

void ReportTimes(const char* who, const Times& times) {
    ReportTime((std::string(who) + " packs").c_str(), times.pack);
    ReportTime((std::string(who) + " unpacks").c_str(), times.unpack);
}

void MeasureSmallFiles() {
    RunOnHost(
        "for folder in $(seq 1 100); do mkdir -p Temp/Source/$folder; head -c 400000 /dev/urandom | base64 "
        "-w 0 | "
        "head -c 400000 | (cd Temp/Source/$folder; split -b 4000 -a 3 -d - f); done; mkdir -p Temp/Target");
    const double copy = WallTimeOf([] { Transferred(Transfer::Copy, L"Source", ItemKind::Folder); });
    RunOnHost(PutAside("Temp/Target/Source"));
    const Times own = OwnTimes();
    ReportTime("copying 10,000 files of 4 KB", copy);
    ReportTimes("the archiver", own);
    ReportTimes("zip -6 and unzip", HostTimes("zip -qr6 host.zip", "unzip -qq host.zip -d Out"));
    ReportTimes("7z", HostTimes("7z a -tzip -bd -y host.zip", "7z x -bd -y -oOut host.zip"));
    ReportRatio("packing them, to copying", own.pack / copy, 1.5);
    ReportRatio("extracting them, to copying", own.unpack / copy, 1.5);
    RunOnHost(PutAside("Temp/Source") + PutAside("Temp/own.zip"));
}

void MeasureMixedData() {
    RunOnHost("mkdir -p Temp/Source\nseq 1 20000000 | head -c 70000000 >Temp/Source/numbers.txt\n"
              "head -c 70000000 /dev/urandom >Temp/Source/noise.bin\n"
              "head -c 60000000 /dev/urandom | base64 | head -c 60000000 >Temp/Source/letters.txt");
    const Times own = OwnTimes();
    const Times zip = HostTimes("zip -qr6 host.zip", "unzip -qq host.zip -d Out");
    ReportTimes("of 200 MB of mixed data: the archiver", own);
    ReportTimes("zip -6 and unzip", zip);
    ReportRatio("packing it, to zip -6", own.pack / zip.pack, 1.2);
}

} // namespace

void MeasureArchives() {
    FindLibrary();
    MeasureSmallFiles();
    MeasureMixedData();
}
