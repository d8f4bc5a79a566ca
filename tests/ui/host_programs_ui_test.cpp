// Screens: 240x320

// What opens the device's files: the host's programs, and what takes their place.

#include "tests/support/ui_test.h"

namespace {

class HostProgramsUi : public UiTest {
  protected:
    void TearDown() override {
        if (HWND notepad = Notepad())
            PostMessageW(notepad, WM_CLOSE, 0, 0);
        EXPECT_TRUE(Eventually([] { return Notepad() == nullptr; }));
        UiTest::TearDown();
    }

    void Open(const std::wstring& name) {
        program.List().Select(name);
        WaitFor("for the list to have the keyboard",
                [&] { return program.IsInFront() && program.ListHasFocus(); });
        PressKey(VK_RETURN);
    }
    static HWND Notepad() { return FindWindowW(L"Notepad", nullptr); }
    static std::wstring NotepadTitle() {
        wchar_t title[128] = {};
        GetWindowTextW(Notepad(), title, 128);
        return title;
    }
    void ExpectNotepad(const std::wstring& shown) {
        // Several programs of the host have their part in it.
        EXPECT_TRUE(HoldsWithin(30000, [&] { return NotepadTitle().find(shown) == 0; }));
    }
};

} // namespace

TEST_F(HostProgramsUi, TextsPicturesPagesAndSoundsOpenInTheHostsPrograms) {
    const std::string names[] = {"a note.txt", "table.csv", "page.htm", "page.html", "a.png",
                                 "a.bmp",      "a.jpg",     "a.gif",    "tone.wav"};
    ShowExtensions();
    for (const std::string& name : names)
        device.HostFile("T/" + name, "content");
    program.Start(L"\\T");
    std::string opened;
    for (const std::string& name : names) {
        Open(std::wstring(name.begin(), name.end()));
        opened += "T/" + name + "\n";
        EXPECT_TRUE(Eventually([&] {
            return device.Exists(L"\\opened-on-host") && device.Content(L"\\opened-on-host") == opened;
        })) << name;
    }
}

TEST_F(HostProgramsUi, WithoutAProgramForItATextComesUpOnThePhone) {
    device.File(L"\\no-host-programs");
    program.Start(L"\\My Documents");
    Open(L"Welcome");
    ExpectNotepad(L"Welcome");
}

TEST_F(HostProgramsUi, WithoutAProgramForItAPictureBringsANote) {
    device.File(L"\\no-host-programs");
    program.Start(L"\\My Documents\\Pictures");
    Open(L"Hills");
    ExpectNotepad(L"Cannot open");
}
