#pragma once
// What every UI suite begins with: a fresh phone, and the program not started yet.

#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "resources/resource.h"
#include "tests/support/clipboard.h"
#include "tests/support/device.h"
#include "tests/support/host.h"
#include "tests/support/input.h"
#include "tests/support/inside.h"
#include "tests/support/live_window.h"
#include "tests/support/other_program.h"
#include "tests/support/program.h"
#include "tests/support/text.h"
#include "tests/support/waiting.h"

/// Leaves the test out where the program is the phone's own executable: what it tests is a service that the
/// desktop alone has. The reason is counted in the report.
#define ONLY_ON_THE_DESKTOP(reason)                                                                          \
    if (RunsPhoneProgram())                                                                                  \
    GTEST_SKIP() << "Only on the desktop: " << (reason)

class UiTest : public testing::Test {
  protected:
    void TearDown() override;

    // How the program is to begin
    void ShowExtensions() { device.SetOption(ListOption::NoExtension, 0); }
    void ShowAddressBar() { device.WriteWords(rebarKey, L"CmdBands", {0, 1}); }
    /// The tree above the list.
    void ShowTree();

    /// A message box with this text and nothing but an OK is up over the main window; answers it.
    void ExpectMessage(const std::wstring& text);

    Device device;
    Program program;
};
