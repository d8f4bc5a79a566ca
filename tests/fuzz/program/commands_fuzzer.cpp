// Any text as the command of a kind of file, and commands put together of any texts.

#include "launch/mail_command.h"
#include "launch/open_commands.h"
#include "tests/fuzz/program/input.h"

namespace {

void TakeApart(std::wstring_view command) {
    const auto parsed = ParseOpenCommand(command);
    if (!parsed)
        return;
    Expect(parsed->program.size() + parsed->parameters.size() <= command.size());
    Expect(EqualNoCase(parsed->program.substr(parsed->program.size() - 4), L".exe"));
    Expect(!parsed->parameters.starts_with(L' '));
}

/// What is stored for a program is found again.
void StoreAndFind(const Association& association, std::wstring_view systemFolder) {
    const AssociationTexts texts = ComposeAssociation(association, systemFolder);
    const auto parsed = ParseOpenCommand(texts.command.get());
    const std::wstring_view program = association.program;
    const std::size_t first = program.find(L".exe");
    const bool plain = program.find_first_of(L"\".") == first && first != std::wstring_view::npos &&
                       first + 4 == program.size();
    if (!plain)
        return;
    Path found;
    Expect(parsed && LocateProgram(parsed->program, systemFolder, found));
    if (program.find(L'\\') != std::wstring_view::npos && !systemFolder.ends_with(L'\\'))
        Expect(EqualNoCase(found.View(), program));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::wstring program = input.Bool() ? L"\\" + input.Text(80) + L".exe" : input.Text(259);
    const std::wstring systemFolder = input.Bool() ? L"\\Windows" : input.Text(100);
    const std::wstring parameters = input.Text(200);
    const std::wstring document = input.Text(259);
    TakeApart(parameters);
    TakeApart(program + L" " + parameters);
    StoreAndFind({program, document, parameters, parameters, document, input.Any<int>()}, systemFolder);
    StoreAndFind({program}, systemFolder);

    const OwnedText filledIn = FillInDocument(parameters, document);
    const std::wstring_view filled = filledIn.get();
    const std::size_t mark = parameters.find(L"%1");
    Expect(filled.size() ==
           (mark == std::wstring::npos ? parameters.size() : parameters.size() - 2 + document.size()));
    const OwnedText mail = MailCommandLine(document, parameters);
    Expect(std::wstring_view(mail.get()) ==
           L"-attach \"" + document + L"\"  -transport \"" + parameters + L"\"");
    return 0;
}
