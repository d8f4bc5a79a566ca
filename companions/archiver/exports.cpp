// What UNZip.dll is called by: one entry point for each kind of archive.

#include <exception>

#include <windows.h>

#include "companions/archiver/extract_archive.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/make_archive.h"
#include "companions/archiver/reply.h"
#include "companions/archiver/window/work_window.h"

namespace archiver {

namespace {

constexpr int success = 0, failure = 1;

/// A reason as a sentence of its own.
std::wstring Sentence(std::wstring reason) {
    if (!reason.empty() && reason.front() >= L'a' && reason.front() <= L'z')
        reason.front() = static_cast<wchar_t>(reason.front() - L'a' + L'A');
    return reason + L'.';
}

/// What is to be done, and what came of it.
struct Task {
    const ArchiveKind& asked;
    CommandLine command;
    int result = failure;
    std::wstring text;
    bool isToBeTold = false; // although it succeeded
};

void CarryOut(Task& task, Attendant& attendant) {
    if (task.command.action == Action::Make) {
        MakingReport report = MakeArchive(task.asked, task.command, attendant);
        task.result = report.made ? success : failure;
        task.isToBeTold = report.made && report.hasLeftOut;
        task.text = std::move(report.text);
        return;
    }
    const ArchiveKind& kind = KindByContent(FullPath(task.command.archive), task.asked);
    ExtractionReport report = ExtractArchive(kind, task.command, attendant);
    task.result = report.complete ? success : failure;
    task.text = std::move(report.text);
}

/// Nothing is thrown from here.
void Work(void* context, Attendant& attendant) {
    Task& task = *static_cast<Task*>(context);
    try {
        CarryOut(task, attendant);
    } catch (const Failure& problem) {
        task.text = Sentence(problem.Reason());
    } catch (const Cancelled&) {
        task.text = L"Canceled.";
    } catch (const std::exception&) {
        task.text = L"There is not enough memory.";
    }
}

/// While it works, others may have their windows call again.
class OnlyCall {
  public:
    OnlyCall() : isOnly_(InterlockedExchange(&busy, 1) == 0) {}
    OnlyCall(const OnlyCall&) = delete;
    OnlyCall& operator=(const OnlyCall&) = delete;
    ~OnlyCall() {
        if (isOnly_)
            InterlockedExchange(&busy, 0);
    }
    bool IsOnly() const { return isOnly_; }

  private:
    static inline LONG busy = 0;
    bool isOnly_;
};

int Call(const ArchiveKind& kind, const wchar_t* commandLine, std::wstring& text) {
    const OnlyCall call;
    std::optional<CommandLine> command = ParseCommandLine(commandLine ? commandLine : L"");
    if (!command || !call.IsOnly()) {
        text = command ? L"The archiver is at work already." : L"This is not a command of the archiver.";
        return failure;
    }
    Task task{kind, std::move(*command), failure, L"There is not enough memory.", false};
    const bool makes = task.command.action == Action::Make;
    const WorkLook look = makes ? WorkLook{L"Compress Files", task.command.folder, task.command.archive}
                                : WorkLook{L"Extract Files", task.command.archive, task.command.folder};
    WorkUnderWindow(look, Work, &task);
    if (task.isToBeTold)
        TellUser(task.text);
    text = std::move(task.text);
    return task.result;
}

int Call(const ArchiveKind& kind, const wchar_t* commandLine, wchar_t* output, DWORD size) {
    try {
        std::wstring text;
        const int result = Call(kind, commandLine, text);
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
/// gets what there is to say, which after a failure is its reason. `owner` is not used: the window that comes
/// up, when it takes long or there is something to ask, belongs to the thread's active one.
__declspec(dllexport) int WINAPI
    UnZip(HWND /*owner*/, const wchar_t* commandLine, wchar_t* output, DWORD size) {
    return archiver::Call(archiver::zipKind, commandLine, output, size);
}

/// The same for an LHA archive.
__declspec(dllexport) int WINAPI
    Unlha(HWND /*owner*/, const wchar_t* commandLine, wchar_t* output, DWORD size) {
    return archiver::Call(archiver::lhaKind, commandLine, output, size);
}
}
