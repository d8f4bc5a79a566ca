#include "launch/send_to.h"

#include "app/app_state.h"
#include "common/file_facts.h"
#include "common/outside_path.h"
#include "common/wait_cursor.h"
#include "launch/mail_command.h"
#include "launch/shell_start.h"
#include "platform/handles.h"

namespace {

/// The messaging program as it was started last, and with what.
struct MailState {
    Path attachment;
    ObjectHandle process;
};
MailState mail;

bool LeadsToFolder(const wchar_t* target) {
    const WaitCursor wait;
    return IsExistingFolder(target);
}

bool SelectedFilePath(Path& path) {
    const std::optional<SelectionEntry> file = SelectedFile();
    return file && path.AssignChild(file->folder.data(), file->name.data());
}

void StartSystemProgram(const wchar_t* program, const wchar_t* parameters) {
    StartThroughShell(
        {.file = program, .parameters = parameters, .directory = appState.settings.windowsPath.data()});
}

void Beam(const wchar_t* parameters) {
    const bool hasBeam = Exists(L"\\Windows\\beam.exe");
    StartSystemProgram(hasBeam ? L"beam.exe" : L"irsquirt.exe", parameters);
}

} // namespace

void launchPreferred(int index) {
    const wchar_t* target = appState.fileList.preferredPrograms.Target(index);
    Path file;
    if (!target || !SelectedFilePath(file))
        return;
    Path program;
    if (!TakeOutsideProgram(target, program))
        return;
    if (LeadsToFolder(program.Text()))
        return appState.fileList.GoToFolder(program.View(), treeRescan);
    wchar_t parameters[pathCapacity + 2];
    FormatText(parameters, appState.settings.quoteFilePath ? L"\"%s\"" : L"%s", file.Text());
    StartThroughShell({.file = program.Text(), .parameters = parameters});
}

void sendByMail(MailTransport transport) {
    const std::optional<SelectionEntry> entry = appState.fileList.EntryAt(appState.fileList.FirstSelected());
    if (entry && !mail.attachment.AssignChild(entry->folder.data(), entry->name.data()))
        return;
    if (mail.process)
        TerminateProcess(mail.process.Get(), 0);
    const OwnedText commandLine =
        MailCommandLine(mail.attachment.View(), transport == MailTransport::Email ? L"email" : L"mms");
    PROCESS_INFORMATION started{};
    if (!ce::CreateProcessW(L"\\windows\\tmail.exe", commandLine.get(), nullptr, nullptr, FALSE,
                            CREATE_NEW_CONSOLE, nullptr, nullptr, nullptr, &started))
        return;
    const ObjectHandle thread(started.hThread);
    mail.process.Reset(started.hProcess);
}

void beamFile() {
    Path file;
    if (SelectedFilePath(file))
        Beam(file.Text());
}

void beamNothing() {
    Beam(nullptr);
}

void StartPcLink() {
    StartSystemProgram(L"repllog.exe", nullptr);
}

void StartActiveSync() {
    StartSystemProgram(L"async.asy", nullptr);
}
