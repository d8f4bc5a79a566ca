#pragma once
// A walk through the program that writes down after every step what is on the screen, on the device and in
// the registry. The records of two programs that go the same way are compared.

#include <cstdio>
#include <string>
#include <vector>

#include "tests/support/ui_test.h"

class Walk : public UiTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    // --- One step each ---

    template <class Act>
    void Step(const std::string& name, Act act) {
        act();
        WriteDown(name);
    }
    void Key(WORD key, unsigned modifiers = NoModifier) {
        Step("key " + std::to_string(key) + "/" + std::to_string(modifiers),
             [&] { PressKey(key, modifiers); });
    }
    void Keys(const std::vector<WORD>& keys) {
        for (const WORD key : keys)
            Key(key);
    }
    void Type(const std::wstring& text) {
        Step("type " + Narrow(text), [&] { TypeText(text); });
    }
    /// A command to the main window.
    void Give(UINT command) {
        Step("command " + std::to_string(command), [&] { program.PostCommand(command); });
    }
    /// A command to the dialog in front.
    void Answer(int command) {
        Step("answer " + std::to_string(command),
             [&] { PostMessageW(GetForegroundWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0); });
    }
    void TapRow(const std::wstring& name, unsigned modifiers = NoModifier) {
        Step("tap " + Narrow(name), [&] {
            if (program.List().Has(name))
                Tap(program.List().PointOf(name), modifiers);
        });
    }
    void HoldRow(const std::wstring& name) {
        Step("hold " + Narrow(name), [&] {
            if (program.List().Has(name))
                TapAndHold(program.List().PointOf(name), holding);
        });
    }
    void Go(const std::wstring& folder) {
        Step("go to " + Narrow(folder), [&] { program.HandOverFolder(folder); });
    }
    void Select(const std::vector<std::wstring>& names);

    /// How long the program is left alone after each step from here on, three times, for what it does by a
    /// timer.
    void Pause(DWORD milliseconds) { pause_ = milliseconds; }
    static constexpr DWORD shortPause = 30, longPause = 300;

    /// Closes by the Back key what is still open, and goes back to where the walk began.
    void CloseAll(const char* after);
    int Steps() const { return steps_; }

  private:
    static constexpr DWORD holding = 1500; // milliseconds

    void LayFiles();
    void WriteDown(const std::string& step);
    std::string DescribeDevice() const;
    void Settle() const;

    std::FILE* record_ = nullptr;
    int steps_ = 0;
    DWORD pause_ = shortPause;
};
