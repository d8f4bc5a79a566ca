#pragma once
// Tests that call UNZip.dll as the program does.

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/device.h"
#include "tests/support/dialog.h"
#include "tests/support/host.h"

/// What a call came to.
struct ArchiverAnswer {
    int result;
    std::wstring text;
};

/// A fresh device, and the library's two entry points.
class ArchiverTest : public testing::Test {
  protected:
    enum Kind { Zip, Lha };

    /// Calls with a command line and a buffer of the size that the program passes.
    static ArchiverAnswer Call(Kind kind, const std::wstring& commandLine);

    /// Calls for an archive of `files`, "\Folder\*" or "\File", below `base`; the test fails when that does.
    static void Make(Kind kind, const std::wstring& archive, const std::wstring& base,
                     const std::vector<std::wstring>& files);
    /// Calls for an extraction that must go well.
    static void Extract(Kind kind, const std::wstring& archive, const std::wstring& target);
    static ArchiverAnswer TryToExtract(Kind kind, const std::wstring& archive, const std::wstring& target);

    Device device;
};

using ArchiverEntry = int(WINAPI*)(HWND, const wchar_t*, wchar_t*, DWORD);

/// An entry point of the library, by its name.
ArchiverEntry EntryOfArchiver(const char* name);

/// Waits for a window of the archiver's that takes input.
Dialog WaitForArchiverDialog(const std::wstring& title);

/// A user who sits before the archiver's windows while the test's own thread calls it. With questions left
/// over, or one too few, the test fails.
class User {
  public:
    /// Answers one "Replace existing File?" after the other by these commands.
    explicit User(std::vector<int> answers);
    /// Does something of its own.
    explicit User(std::function<void()> act);
    User(const User&) = delete;
    User& operator=(const User&) = delete;
    ~User();

    /// Waits until all is done. The texts of each question, in the order of its controls.
    const std::vector<std::vector<std::wstring>>& Questions();

  private:
    std::vector<std::vector<std::wstring>> questions_;
    std::thread thread_;
};
