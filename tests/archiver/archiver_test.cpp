#include "tests/archiver/archiver_test.h"

#include <stdexcept>

#include "tests/support/text.h"
#include "tests/support/waiting.h"

ArchiverEntry EntryOfArchiver(const char* name) {
    static const HMODULE library = [] {
        wchar_t path[1024];
        GetModuleFileNameW(nullptr, path, static_cast<DWORD>(std::size(path)));
        std::wstring folder(path);
        for (int up = 0; up < 2; ++up)
            folder.resize(folder.rfind(L'\\'));
        return LoadLibraryW((folder + L"\\UNZip.dll").c_str());
    }();
    const FARPROC entry = library ? GetProcAddress(library, name) : nullptr;
    if (!entry)
        throw std::runtime_error(std::string("UNZip.dll has no ") + name);
    return reinterpret_cast<ArchiverEntry>(reinterpret_cast<void*>(entry));
}

ArchiverAnswer ArchiverTest::Call(Kind kind, const std::wstring& commandLine) {
    wchar_t text[1024] = {};
    const int result =
        EntryOfArchiver(kind == Zip ? "UnZip" : "Unlha")(nullptr, commandLine.c_str(), text, sizeof(text));
    return {result, text};
}

void ArchiverTest::Make(Kind kind, const std::wstring& archive, const std::wstring& base,
                        const std::vector<std::wstring>& files) {
    std::wstring commandLine = L"a \"" + archive + L"\" \"" + base + L"\\\" ";
    for (const std::wstring& file : files)
        commandLine += L'"' + file + L"\" ";
    const ArchiverAnswer answer = Call(kind, commandLine);
    if (answer.result != 0)
        throw std::runtime_error("making failed: " + Narrow(answer.text));
}

ArchiverAnswer ArchiverTest::TryToExtract(Kind kind, const std::wstring& archive,
                                          const std::wstring& target) {
    return Call(kind, L"e \"" + archive + L"\" \"" + target + L"\\\"");
}

void ArchiverTest::Extract(Kind kind, const std::wstring& archive, const std::wstring& target) {
    const ArchiverAnswer answer = TryToExtract(kind, archive, target);
    if (answer.result != 0)
        throw std::runtime_error("extracting failed: " + Narrow(answer.text));
}

User::User(std::function<void()> act)
    : thread_([act = std::move(act)] {
          try {
              act();
          } catch (const std::exception& problem) {
              ADD_FAILURE() << problem.what();
          }
      }) {}

User::User(std::vector<int> answers)
    : User(std::function<void()>([this, answers = std::move(answers)] {
          for (const int answer : answers) {
              Dialog question = WaitForArchiverDialog(L"Replace existing File?");
              questions_.push_back(question.TextsShown());
              question.Command(answer);
              question.WaitUntilClosed();
          }
      })) {}

User::~User() {
    if (thread_.joinable())
        thread_.join();
}

const std::vector<std::vector<std::wstring>>& User::Questions() {
    if (thread_.joinable())
        thread_.join();
    return questions_;
}

Dialog WaitForArchiverDialog(const std::wstring& title) {
    HWND found = nullptr;
    WaitFor("for the dialog " + Narrow(title), [&] {
        for (const HWND dialog : DialogsOf(GetCurrentProcessId()))
            if (Dialog(dialog).Title() == title && IsWindowEnabled(dialog))
                found = dialog;
        return found != nullptr;
    });
    return Dialog(found);
}
