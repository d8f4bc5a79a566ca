// Screens: 240x320 320x240 176x220

// The page "Compression": what archives are extracted to, and how.

#include "tests/support/library_stand_in.h"
#include "tests/ui/options_ui.h"

namespace {

const std::vector<int> boxes = {IDC_EXTRACT_IN_PLACE, IDC_FOLDER_CREATION, IDC_OPEN_EXTRACTED,
                                IDC_OPEN_ARCHIVES};

class OptionsCompressionUi : public OptionsUi {
  protected:
    Dialog OpenCompression() {
        Open();
        return OpenPage(IDM_OPTIONS_COMPRESSION, L"Compression");
    }
    std::vector<std::uint32_t> StoredBoxes() const {
        return {device.StoredOption(ListOption::ExtractInPlace),
                device.StoredOption(ListOption::AutomaticFolderCreation),
                device.StoredOption(ListOption::AlwaysOpenExtractFolder),
                device.StoredOption(ListOption::OpenArchivesHere)};
    }
};

TEST_F(OptionsCompressionUi, WithAnArchiverAllCanBeChosen) {
    const LibraryStandIn archiver(L"UNZip.dll");
    program.Start();
    Dialog page = OpenCompression();
    EXPECT_EQ(page.TextsShown(),
              (Texts{L"Compression", L"Default location to place extracted files", L"\\Temp", L"ZIP",
                     L"Extract in place", L"Automatic folder creation", L"Always open extract folder",
                     L"Open archives with Tarvik File Manager"}));
    EXPECT_EQ(page.SoftKeys(), (Texts{L"Ok", L"Cancel"}));
    ExpectUsable(program, page);
    EXPECT_TRUE(page.Item(IDC_ZIP).IsEnabled());
    EXPECT_TRUE(page.Item(IDC_ZIP).IsChecked());
    EXPECT_EQ(MarkedOf(page, boxes), std::vector<int>{});
    page.Item(IDC_EXTRACT_FOLDER).SetText(L"\\My Documents");
    page.Mark(IDC_FOLDER_CREATION, true);
    page.Mark(IDC_OPEN_ARCHIVES, true);
    ConfirmBoth(page);
    page = OpenCompression();
    EXPECT_EQ(page.Item(IDC_EXTRACT_FOLDER).Text(), L"\\My Documents");
    EXPECT_EQ(MarkedOf(page, boxes), (std::vector{IDC_FOLDER_CREATION, IDC_OPEN_ARCHIVES}));
    page.Mark(IDC_EXTRACT_IN_PLACE, true);
    page.Mark(IDC_OPEN_EXTRACTED, true);
    ConfirmBoth(page);
    program.Close();
    EXPECT_EQ(StoredBoxes(), (std::vector<std::uint32_t>{1, 1, 1, 1}));
    EXPECT_EQ(device.TextValue(settingsKey, L"CompressFolder"), L"\\My Documents");
    EXPECT_EQ(device.StoredOption(ListOption::ArchiveType), 2u);
}

TEST_F(OptionsCompressionUi, WithoutAnArchiverNothingCanBeChosen) {
    RemoveLibrary(L"UNZip.dll");
    device.SetOption(ListOption::ArchiveType, 1);
    device.SetOption(ListOption::ExtractInPlace, 1);
    program.Start();
    Dialog page = OpenCompression();
    EXPECT_FALSE(page.Item(IDC_ZIP).IsEnabled());
    EXPECT_FALSE(page.Item(IDC_ZIP).IsChecked());
    for (const int box : boxes)
        EXPECT_FALSE(page.Item(box).IsEnabled());
    EXPECT_FALSE(page.Item(IDC_EXTRACT_FOLDER).IsEnabled());
    PressLeftSoftKey();
    page.WaitUntilClosed();
    Leave(program.WaitForDialog(L"Options"));
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::ArchiveType), 2u);
    EXPECT_EQ(StoredBoxes(), (std::vector<std::uint32_t>{1, 0, 0, 0}));
    EXPECT_EQ(device.TextValue(settingsKey, L"CompressFolder"), L"\\Temp");
}

TEST_F(OptionsCompressionUi, WithoutAnArchiverBackStillLeavesThePage) {
    RemoveLibrary(L"UNZip.dll");
    program.Start();
    Dialog page = OpenCompression();
    PressBack();
    page.WaitUntilClosed();
    Leave(program.WaitForDialog(L"Options"));
}

TEST_F(OptionsCompressionUi, TheOtherKindOfArchiveBecomesZip) {
    const LibraryStandIn archiver(L"UNZip.dll");
    device.SetOption(ListOption::ArchiveType, 1);
    program.Start();
    Dialog page = OpenCompression();
    EXPECT_TRUE(page.Item(IDC_ZIP).IsEnabled());
    EXPECT_FALSE(page.Item(IDC_ZIP).IsChecked());
    ConfirmBoth(page);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::ArchiveType), 2u);
}

TEST_F(OptionsCompressionUi, ALeftPageChangesNothing) {
    const LibraryStandIn archiver(L"UNZip.dll");
    device.SetOption(ListOption::ArchiveType, 1);
    program.Start();
    Dialog page = OpenCompression();
    page.Item(IDC_EXTRACT_FOLDER).SetText(L"\\F");
    for (const int box : boxes)
        page.Mark(box, true);
    PressRightSoftKey();
    page.WaitUntilClosed();
    Confirm(program.WaitForDialog(L"Options"));
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::ArchiveType), 1u);
    EXPECT_EQ(StoredBoxes(), (std::vector<std::uint32_t>{0, 0, 0, 0}));
    EXPECT_EQ(device.TextValue(settingsKey, L"CompressFolder"), L"\\Temp");
}

TEST_F(OptionsCompressionUi, TheFolderCanBeEmptiedAndIsNeverLongerThanAPath) {
    const LibraryStandIn archiver(L"UNZip.dll");
    program.Start();
    Dialog page = OpenCompression();
    page.Item(IDC_EXTRACT_FOLDER).SetText(std::wstring(4000, L'x'));
    ConfirmBoth(page);
    page = OpenCompression();
    EXPECT_EQ(page.Item(IDC_EXTRACT_FOLDER).Text(), std::wstring(259, L'x'));
    page.Item(IDC_EXTRACT_FOLDER).SetText(L"");
    ConfirmBoth(page);
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"CompressFolder"), L"");
}

TEST_F(OptionsCompressionUi, ThePadGoesThroughAllControls) {
    const LibraryStandIn archiver(L"UNZip.dll");
    program.Start();
    Dialog page = OpenCompression();
    WaitFor("for the field", [&] { return HasFocus(page, IDC_EXTRACT_FOLDER); });
    for (const int control : {IDC_ZIP, IDC_EXTRACT_IN_PLACE, IDC_FOLDER_CREATION, IDC_OPEN_EXTRACTED,
                              IDC_OPEN_ARCHIVES, IDC_EXTRACT_FOLDER}) {
        PressKey(VK_DOWN);
        WaitFor("for the next control", [&] { return HasFocus(page, control); });
    }
    Leave(page);
    Leave(program.WaitForDialog(L"Options"));
}

} // namespace
