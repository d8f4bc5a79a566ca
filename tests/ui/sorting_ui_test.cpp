// Screens: 240x320

// The order of the list: by commands, by column titles, as stored, and its check marks.

#include "tests/support/ui_test.h"

namespace {

class SortingUi : public UiTest {
  protected:
    void SetUp() override {
        device.Folder(L"\\Sort\\Zoo");
        device.Folder(L"\\Sort\\ant");
        device.File(L"\\Sort\\README", "1234");
        device.File(L"\\Sort\\b.TXT", "1");
        device.File(L"\\Sort\\a.txt", "12");
        device.File(L"\\Sort\\Kiwi.doc", "123");
        const SYSTEMTIME times[] = {{2004, 1, 0, 5, 12, 0, 0, 0},
                                    {2001, 1, 0, 5, 12, 0, 0, 0},
                                    {2003, 1, 0, 5, 12, 0, 0, 0},
                                    {2002, 1, 0, 5, 12, 0, 0, 0}};
        device.SetWriteTime(L"\\Sort\\README", times[0]);
        device.SetWriteTime(L"\\Sort\\b.TXT", times[1]);
        device.SetWriteTime(L"\\Sort\\a.txt", times[2]);
        device.SetWriteTime(L"\\Sort\\Kiwi.doc", times[3]);
        ShowExtensions();
    }

    void StartSorted(std::uint32_t key, std::uint32_t ascending) {
        device.SetOption(ListOption::SortKey, key);
        device.SetOption(ListOption::Ascending, ascending);
        device.SetOption(ListOption::ViewStyle, LVS_REPORT);
        program.Start(L"\\Sort");
    }

    Texts Names() const { return program.List().Names(); }

    /// Which of the five entries of "Arrange Icons By" are checked.
    Texts Checked() const {
        return program.SoftKeyMenu().Popup(L"View").Popup(L"Arrange Icons By").CheckedTexts();
    }
};

TEST_F(SortingUi, NameIsBlindToCaseForwards) {
    StartSorted(0, 1);
    EXPECT_EQ(Names(), (Texts{L"..", L"ant", L"Zoo", L"a.txt", L"b.TXT", L"Kiwi.doc", L"README"}));
    EXPECT_EQ(Checked(), (Texts{L"Name"}));
}

TEST_F(SortingUi, NameTellsCasesApartBackwards) {
    StartSorted(0, 0);
    EXPECT_EQ(Names(), (Texts{L"..", L"ant", L"Zoo", L"b.TXT", L"a.txt", L"README", L"Kiwi.doc"}));
    EXPECT_EQ(Checked(), (Texts{L"Name", L"Reverse"}));
}

TEST_F(SortingUi, TypeLeadsWithFilesWithoutExtension) {
    StartSorted(1, 1);
    EXPECT_EQ(Names(), (Texts{L"..", L"ant", L"Zoo", L"README", L"Kiwi.doc", L"a.txt", L"b.TXT"}));
}

TEST_F(SortingUi, TypeReversedKeepsTheFoldersInOrderAndTrailsWithFilesWithoutExtension) {
    StartSorted(1, 0);
    EXPECT_EQ(Names(), (Texts{L"..", L"ant", L"Zoo", L"b.TXT", L"a.txt", L"Kiwi.doc", L"README"}));
}

TEST_F(SortingUi, SizeSortsFilesAloneAndFoldersByName) {
    StartSorted(2, 1);
    EXPECT_EQ(Names(), (Texts{L"..", L"ant", L"Zoo", L"b.TXT", L"a.txt", L"Kiwi.doc", L"README"}));
    program.Command(IDM_ARRANGE_REVERSE);
    EXPECT_EQ(Names(), (Texts{L"..", L"ant", L"Zoo", L"README", L"Kiwi.doc", L"a.txt", L"b.TXT"}));
}

TEST_F(SortingUi, DateSortsByTheTimeOfTheEntries) {
    StartSorted(3, 1);
    const Texts names = Names();
    EXPECT_EQ((Texts{names.begin() + 3, names.end()}), (Texts{L"b.TXT", L"Kiwi.doc", L"a.txt", L"README"}));
    program.Command(IDM_ARRANGE_REVERSE);
    const Texts reversed = Names();
    EXPECT_EQ(reversed.front(), L"..");
    EXPECT_EQ((Texts{reversed.begin() + 3, reversed.end()}),
              (Texts{L"README", L"a.txt", L"Kiwi.doc", L"b.TXT"}));
}

TEST_F(SortingUi, AKeyNobodyKnowsSortsByNameWithoutACheckMark) {
    StartSorted(7, 1);
    EXPECT_EQ(Names(), (Texts{L"..", L"ant", L"Zoo", L"a.txt", L"b.TXT", L"Kiwi.doc", L"README"}));
    EXPECT_EQ(Checked(), Texts{});
}

TEST_F(SortingUi, ACommandChangesTheKeyAndKeepsTheDirection) {
    StartSorted(0, 0);
    program.Command(IDM_ARRANGE_SIZE);
    EXPECT_EQ(Names().at(3), L"README");
    EXPECT_EQ(Checked(), (Texts{L"Size", L"Reverse"}));
    program.Command(IDM_ARRANGE_TYPE);
    EXPECT_EQ(Names().back(), L"README");
    EXPECT_EQ(Checked(), (Texts{L"Type", L"Reverse"}));
    program.Command(IDM_ARRANGE_DATE);
    EXPECT_EQ(Names().at(Names().size() - 4), L"README");
    EXPECT_EQ(Checked(), (Texts{L"Date", L"Reverse"}));
    program.Command(IDM_ARRANGE_NAME);
    program.Command(IDM_ARRANGE_REVERSE);
    EXPECT_EQ(Names().back(), L"README");
    EXPECT_EQ(Checked(), (Texts{L"Name"}));
}

TEST_F(SortingUi, AColumnTitleOfAnotherKeyKeepsTheDirectionAndOfTheSameInvertsIt) {
    for (const ListOption width :
         {ListOption::NameWidth, ListOption::SizeWidth, ListOption::TypeWidth, ListOption::ModifiedWidth})
        device.SetOption(width, 50);
    StartSorted(2, 1);
    const auto tapTitle = [&](int column) {
        Tap(program.List().ColumnTitlePoint(column));
        program.WaitUntilIdle();
    };
    tapTitle(1);
    WaitFor("for the sizes backwards", [&] { return Checked() == Texts{L"Size", L"Reverse"}; });
    EXPECT_EQ(Names().at(3), L"README");
    tapTitle(2);
    WaitFor("for the types backwards", [&] { return Checked() == Texts{L"Type", L"Reverse"}; });
    EXPECT_EQ(Names().back(), L"README");
    tapTitle(3);
    WaitFor("for the dates backwards", [&] { return Checked() == Texts{L"Date", L"Reverse"}; });
    tapTitle(0);
    WaitFor("for the names backwards", [&] { return Checked() == Texts{L"Name", L"Reverse"}; });
}

TEST_F(SortingUi, KeyAndDirectionAreKept) {
    StartSorted(0, 1);
    program.Command(IDM_ARRANGE_DATE);
    program.Command(IDM_ARRANGE_REVERSE);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::SortKey), 3u);
    EXPECT_EQ(device.StoredOption(ListOption::Ascending), 0u);
    program.Start(L"\\Sort");
    EXPECT_EQ(Checked(), (Texts{L"Date", L"Reverse"}));
}

TEST_F(SortingUi, TheSelectionStaysOnItsEntries) {
    StartSorted(0, 1);
    program.List().Select(L"Kiwi.doc");
    program.Command(IDM_ARRANGE_REVERSE);
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Kiwi.doc"}));
}

} // namespace
