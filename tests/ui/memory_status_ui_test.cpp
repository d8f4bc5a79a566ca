// Screens: 240x320 320x240 176x220

// What is free of the memory, the internal store and the storage cards.

#include <algorithm>

#include "tests/support/ui_test.h"

namespace {

class MemoryStatusUi : public UiTest {
  protected:
    /// The lines of the dialog's text; the dialog is closed again by `command`.
    Texts Lines(int command) {
        program.PostCommand(IDM_TOOLS_MEMORY_STATUS);
        Dialog dialog = program.WaitForDialog(L"Memory Status");
        EXPECT_EQ(dialog.SoftKeys(), Texts{L"Ok"});
        EXPECT_TRUE(GetWindowLongW(dialog.Item(IDC_MEMORY_TEXT).Window(), GWL_STYLE) & ES_READONLY);
        std::wstring text = dialog.Item(IDC_MEMORY_TEXT).Text();
        dialog.Command(command);
        dialog.WaitUntilClosed();
        Texts lines;
        for (std::size_t end = 0; (end = text.find(L"\r\n")) != std::wstring::npos; text.erase(0, end + 2))
            lines.push_back(text.substr(0, end));
        lines.push_back(text);
        return lines;
    }
    static bool Tells(const std::wstring& line, const std::wstring& label) {
        return line.starts_with(label) && line.find(L"B / ") != std::wstring::npos && line.ends_with(L"B");
    }
};

TEST_F(MemoryStatusUi, WithoutCardsThereAreTwoLinesBehindTheTitle) {
    program.Start();
    for (const int command : {IDM_MEMORY_OK, IDOK}) {
        const Texts lines = Lines(command);
        ASSERT_EQ(lines.size(), 3u);
        EXPECT_EQ(lines[0], L"Memory Status");
        EXPECT_TRUE(Tells(lines[1], L"Program : ")) << Narrow(lines[1]);
        EXPECT_TRUE(Tells(lines[2], L"Data\t: ")) << Narrow(lines[2]);
    }
}

TEST_F(MemoryStatusUi, EachCardHasALine) {
    device.StorageCard("Storage Card");
    device.StorageCard("Second");
    program.Start();
    const Texts lines = Lines(IDM_MEMORY_OK);
    ASSERT_EQ(lines.size(), 5u);
    for (const wchar_t* label : {L"Storage Card : ", L"Second : "})
        EXPECT_TRUE(std::ranges::any_of(lines, [&](const auto& line) { return Tells(line, label); }));
}

TEST_F(MemoryStatusUi, StandsInTheToolsMenu) {
    program.Start();
    EXPECT_EQ(program.SoftKeyMenu().Popup(L"Tools").Texts(),
              (Texts{L"PC Link", L"ActiveSync", L"-", L"Memory Status"}));
}

} // namespace
