// What UNZip.dll is called by: one entry point for each kind of archive.

#include <exception>

#include <windows.h>

#include "companions/archiver/extract_archive.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/lha_reader.h"
#include "companions/archiver/lha_writer.h"
#include "companions/archiver/make_archive.h"
#include "companions/archiver/reply.h"
#include "companions/archiver/zip_reader.h"
#include "companions/archiver/zip_writer.h"

namespace archiver {

namespace {

constexpr int success = 0, failure = 1;

/// A reason as a sentence of its own.
std::wstring Sentence(std::wstring reason) {
    if (!reason.empty() && reason.front() >= L'a' && reason.front() <= L'z')
        reason.front() = static_cast<wchar_t>(reason.front() - L'a' + L'A');
    return reason + L'.';
}

/// Carries a command out. `text` becomes what there is to say about it.
int CarryOut(const ArchiveKind& kind, const wchar_t* commandLine, std::wstring& text) {
    const std::optional<CommandLine> command = ParseCommandLine(commandLine ? commandLine : L"");
    if (!command)
        throw Failure(L"this is not a command of the archiver");
    if (command->action == Action::Make) {
        text = MakeArchive(kind, *command);
        return success;
    }
    ExtractionReport report = ExtractArchive(kind, *command);
    text = std::move(report.text);
    return report.complete ? success : failure;
}

int Call(const ArchiveKind& kind, const wchar_t* commandLine, wchar_t* output, DWORD size) {
    try {
        std::wstring text;
        int result = failure;
        try {
            result = CarryOut(kind, commandLine, text);
        } catch (const Failure& problem) {
            text = Sentence(problem.Reason());
        }
        WriteReply(output, size, text);
        return result;
    } catch (const std::exception&) {
        WriteReply(output, size, L"There is not enough memory.");
        return failure;
    }
}

} // namespace

} // namespace archiver

extern "C" {

/// Makes or extracts a ZIP archive as `commandLine` says. Returns 0 for success; `output`, of `size` bytes,
/// gets what there is to say, which after a failure is its reason. No window is shown: `owner` is not used.
__declspec(dllexport) int WINAPI
    UnZip(HWND /*owner*/, const wchar_t* commandLine, wchar_t* output, DWORD size) {
    return archiver::Call({archiver::MakeZipWriter, archiver::OpenZip}, commandLine, output, size);
}

/// The same for an LHA archive.
__declspec(dllexport) int WINAPI
    Unlha(HWND /*owner*/, const wchar_t* commandLine, wchar_t* output, DWORD size) {
    return archiver::Call({archiver::MakeLhaWriter, archiver::OpenLha}, commandLine, output, size);
}
}
