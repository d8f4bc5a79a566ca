// Screens: 240x320

// Archives through the program with the archiver that is built with it.

#include "tests/support/library_stand_in.h"
#include "tests/ui/job_ui.h"
#include "tests/ui/save_dialog.h"

namespace {

class ArchiverUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        PutBuiltArchiver();
        device.SetOption(ListOption::ExtractInPlace, 1);
        device.SetOption(ListOption::AutomaticFolderCreation, 1);
        device.File(L"\\Docs\\Sub\\Inner\\deep.txt", "deep");
        device.File(L"\\Docs\\Sub\\numbers.txt", std::string(500'000, '7'));
        device.Folder(L"\\Docs\\Sub\\Empty");
        device.File(L"\\Docs\\B\u00fccher \u65e5\u672c.txt", "books");
    }

    /// Compresses what is selected into an archive that the platform's own dialog asks for.
    void CompressInto(const std::wstring& archive) {
        Dialog dialog = AskForArchive(program);
        SaveAs(program, dialog, archive);
    }
    void Extract(const std::wstring& archive) {
        Select({archive});
        program.WaitForListFocus();
        program.Command(IDM_FILE_EXTRACT_TO);
    }

    /// There and back again, with the device showing it on the way.
    void GoThereAndBack(const std::wstring& ending) {
        StartIn(L"\\Docs");
        Select({L"Sub", L"B\u00fccher \u65e5\u672c.txt"});
        CompressInto(L"\\Docs\\made" + ending);
        EXPECT_FALSE(program.HasMessageBox());
        EXPECT_TRUE(Eventually([&] { return program.List().Has(L"made" + ending); }));
        Extract(L"made" + ending);
        EXPECT_FALSE(program.HasMessageBox());
        EXPECT_TRUE(Eventually([&] { return program.List().Has(L"made"); }));
        RunOnHost(
            "diff -r Docs/Sub Docs/made/Sub\ncmp 'Docs/B\u00fccher \u65e5\u672c.txt' 'Docs/made/B\u00fccher "
            "\u65e5\u672c.txt'");
    }
};

TEST_F(ArchiverUi, AZipHoldsWhatWentIn) {
    GoThereAndBack(L".zip");
    RunOnHost("unzip -tqq Docs/made.zip");
}

TEST_F(ArchiverUi, AnLhaArchiveHoldsWhatWentIn) {
    device.SetOption(ListOption::ArchiveType, 1);
    GoThereAndBack(L".lzh");
    RunOnHost("lha tq Docs/made.lzh");
}

TEST_F(ArchiverUi, TheRootIsCompressedAndExtractedToo) {
    device.File(L"\\top.txt", "top");
    StartIn(L"");
    Select({L"Docs", L"top.txt"});
    CompressInto(L"\\Temp\\root.zip");
    Show(L"\\Temp");
    Extract(L"root.zip");
    EXPECT_EQ(device.Content(L"\\Temp\\root\\top.txt"), "top");
    EXPECT_EQ(device.Content(L"\\Temp\\root\\Docs\\Sub\\Inner\\deep.txt"), "deep");
}

TEST_F(ArchiverUi, WhatAHostileArchiveTriesIsSaidAndNotDone) {
    RunOnHost("mkdir -p In/inner\necho evil >In/evil.txt\necho good >In/inner/good.txt\n"
              "cd In/inner\nzip -q ../../Docs/bad.zip ../evil.txt good.txt");
    StartIn(L"\\Docs");
    Select({L"bad.zip"});
    program.WaitForListFocus();
    program.PostCommand(IDM_FILE_EXTRACT_TO);
    EXPECT_EQ(ReadMessage(),
              L"1 of 2 files were extracted.\n'../evil.txt' was left out: the name leads out of the "
              L"target folder.");
    EXPECT_EQ(device.NamesIn(L"\\Docs\\bad"), Texts{L"good.txt"});
    EXPECT_FALSE(device.Exists(L"\\Docs\\evil.txt"));
}

TEST_F(ArchiverUi, AFileThatIsNoArchiveIsSaidToBeNone) {
    device.File(L"\\Docs\\text.zip", "This is no archive.");
    StartIn(L"\\Docs");
    Select({L"text.zip"});
    program.WaitForListFocus();
    program.PostCommand(IDM_FILE_EXTRACT_HERE);
    EXPECT_EQ(ReadMessage(), L"The file is not a ZIP archive, or is damaged.");
}

} // namespace
