// Screens: 240x320

// Folders that are odd: cards, links, without permission, with odd names, too long or too many.

#include "tests/ui/listing_ui.h"

namespace {

/// Names that the host allows in UTF-8: odd, unfit for the device, or no text at all.
const std::string oddNames[] = {"100% %s%n%d",
                                "a&b",
                                "quote'",
                                "semi;colon",
                                "\xC3\xA4\xC3\xB6\xE2\x82\xAC",
                                "tab\there",
                                "star*",
                                "line\nbreak",
                                "what?",
                                "\xF0\x9F\x98\x80",
                                "quote\"",
                                "pipe|",
                                "back\\slash",
                                "colon:",
                                "\xE2\x80\xAE"
                                "flipped",
                                "blank ",
                                "dot.",
                                " blank",
                                "...",
                                "\xFF\xFE",
                                "NUL",
                                "com1",
                                "<less",
                                "e\xCC\x81"};

class ListingOddUi : public ListingUi {
  protected:
    /// Opens every row in turn that is a folder, and comes back: none may do harm.
    void VisitEveryFolder(const std::wstring& folder) {
        for (int row = 1; row < program.List().Count(); ++row) {
            if (!device.IsFolder(folder + L"\\" + program.List().Text(row)))
                continue;
            program.HandOverFolder(folder + L"\\" + program.List().Text(row));
            program.HandOverFolder(folder);
        }
    }
};

// --- Cards, links, folders that cannot be read ---

TEST_F(ListingOddUi, AStorageCardIsAFolderAtTheTop) {
    device.StorageCard("Storage Card", {"Music/song.mp3", "note.txt"});
    program.Start();
    const int card = program.List().Find(L"Storage Card");
    ASSERT_GE(card, 0);
    EXPECT_NE(program.List().Image(card), program.List().Image(program.List().Find(L"Temp")));
    program.List().Select(L"Storage Card");
    program.Command(IDM_FILE_OPEN);
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Music", L"note"}));
}

TEST_F(ListingOddUi, ALinkToAFolderIsListedAsAFolder) {
    device.File(L"\\A\\Real\\inside.txt");
    device.HostLink("A/Link", "Real");
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"Link", L"Real"}));
    program.HandOverFolder(L"\\A\\Link");
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"inside"}));
}

TEST_F(ListingOddUi, ALinkToItsOwnFolderDoesNoHarm) {
    device.HostFolder("A");
    device.HostLink("A/Loop", ".");
    std::wstring folder = L"\\A";
    NamesIn(folder);
    for (int depth = 0; depth < 60; ++depth)
        program.HandOverFolder(folder += L"\\Loop");
    program.Command(IDM_GOTO_DEVICE);
    EXPECT_EQ(program.Folder(), L"My PocketPC");
}

TEST_F(ListingOddUi, ADanglingLinkDoesNoHarm) {
    device.HostFile("A/file.txt");
    device.HostLink("A/dangling", "nowhere");
    device.HostLink("A/itself", "itself");
    device.HostLink("Card that is out", "nowhere");
    NamesIn(L"\\A");
    EXPECT_TRUE(program.List().Has(L"file"));
    GoUp();
    EXPECT_TRUE(program.List().Has(L"A"));
}

TEST_F(ListingOddUi, AFolderThatCannotBeReadShowsOnlyTheWayUp) {
    device.File(L"\\Secret\\plan.txt");
    device.Forbid("Secret");
    EXPECT_EQ(NamesIn(L"\\Secret"), (Texts{L".."}));
    EXPECT_EQ(program.Status().Texts(), (Texts{L"0", L"0.00KB", L"Secret"}));
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(ListingOddUi, AFolderThatVanishedShowsOnlyTheWayUp) {
    device.Folder(L"\\A\\B");
    NamesIn(L"\\A");
    device.Remove(L"\\A\\B");
    program.List().Select(L"B");
    program.Command(IDM_FILE_OPEN);
    EXPECT_EQ(program.List().Names(), (Texts{L".."}));
}

// --- Names that are odd, long, many ---

TEST_F(ListingOddUi, OddNamesDoNoHarm) {
    ShowDetails();
    ShowExtensions();
    std::vector<std::string> files;
    for (const std::string& name : oddNames) {
        files.push_back("A/" + name);
        files.push_back("Folders/" + name + "/inside.txt");
    }
    device.HostFiles(files);
    NamesIn(L"\\A");
    for (const wchar_t* name : {L"100% %s%n%d", L"a&b", L"quote'", L"\x00E4\x00F6\x20AC"})
        EXPECT_TRUE(program.List().Has(name)) << Narrow(name);
    for (int row = 0; row < program.List().Count(); ++row)
        program.List().Row(row);
    program.HandOverFolder(L"\\Folders");
    EXPECT_TRUE(program.List().Has(L"100% %s%n%d"));
    VisitEveryFolder(L"\\Folders");
    EXPECT_EQ(program.Folder(), L"\\Folders");
}

TEST_F(ListingOddUi, ANameOfTheLongestLengthIsShownWhole) {
    ShowExtensions();
    const std::wstring name(255, L'n');
    device.HostFile(std::string(255, 'n'));
    program.Start();
    EXPECT_TRUE(program.List().Has(name));
}

TEST_F(ListingOddUi, EntriesWhosePathIsTooLongDoNoHarm) {
    ShowDetails();
    const std::string deep = std::string(100, 'a') + "/" + std::string(100, 'b');
    device.HostFile(deep + "/" + std::string(57, 'f'));  // 260 characters: too long by one
    device.HostFile(deep + "/" + std::string(200, 'g')); // far too long
    device.HostFolder(deep + "/" + std::string(200, 'h'));
    device.HostFile(deep + "/short.txt");
    const std::wstring folder = L"\\" + std::wstring(100, L'a') + L"\\" + std::wstring(100, L'b');
    NamesIn(folder);
    EXPECT_TRUE(program.List().Has(L"short"));
    for (int row = 0; row < program.List().Count(); ++row)
        program.List().Row(row);
    ASSERT_TRUE(program.List().Has(std::wstring(200, L'h')));
    program.List().Select(std::wstring(200, L'h'));
    program.PostCommand(IDM_FILE_OPEN);
    program.WaitForMessageBox().Answer(IDOK);
    EXPECT_EQ(program.Folder(), folder);
}

TEST_F(ListingOddUi, ATrailingBackslashStaysAsTyped) {
    ShowAddressBar();
    program.Start();
    program.GoByAddressBar(L"\\My Documents\\");
    EXPECT_TRUE(program.List().Has(L"Notes"));
}

TEST_F(ListingOddUi, TwentyThousandFilesOpen) {
    device.Files(L"\\Many", L"file", 20000);
    program.Start();
    program.HandOverFolder(L"\\Many");
    EXPECT_EQ(program.List().Count(), 20001);
    EXPECT_EQ(program.List().Text(0), L"..");
    EXPECT_EQ(program.List().Text(1), L"file0");
    EXPECT_EQ(program.List().Text(20000), L"file9999");
    EXPECT_EQ(program.Status().Texts().front(), L"20,000");
    GoUp();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Many"}));
}

} // namespace
