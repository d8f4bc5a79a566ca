// Any bytes as an LHA header, as a name and as a command line.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "companions/archiver/command_line.h"
#include "companions/archiver/lha_names.h"
#include "companions/archiver/member_names.h"

namespace {

void ExpectSafe(const std::wstring& path) {
    const std::wstring framed = L"\\" + path + L"\\";
    for (const wchar_t* bad : {L"\\..\\", L"\\.\\", L"\\\\", L":", L"/", L"*", L".\\", L" \\"})
        if (!path.empty() && framed.find(bad) != std::wstring::npos)
            std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ExpectSafe(archiver::JudgeName(archiver::LhaName(bytes)).path);
    ExpectSafe(archiver::JudgeName(std::wstring(bytes.begin(), bytes.end())).path);
    if (const auto command = archiver::ParseCommandLine(std::wstring(bytes.begin(), bytes.end())))
        if (command->archive.empty() || command->archive.find(L'"') != std::wstring::npos)
            std::abort();
    return 0;
}
