// Screens: 240x320
// Limit: 600 seconds

// Another start's folder arrives in the midst of an operation, at each place where the program lets messages
// in. The operation is about what it was begun with, and the list shows what is there.

#include <algorithm>

#include "tests/support/let_in.h"
#include "tests/support/library_stand_in.h"
#include "tests/ui/job_ui.h"
#include "tests/ui/save_dialog.h"

namespace {

class LetInUi : public JobUi {
  protected:
    enum class Pane { List, Tree };

    void SetUp() override {
        JobUi::SetUp();
        device.SetOption(ListOption::ViewStyle, LVS_REPORT);
        device.Folder(L"\\Other\\Two");
        device.File(L"\\Other\\one.txt", "1");
        RunOnHost("rm -f Windows/Favorites/*");
        ShowTree();
        PutBuiltArchiver();
        device.SetOption(ListOption::ExtractInPlace, 1);
        StartIn(L"\\Other");
    }

    /// The folder worked in, as it is before each time.
    void Prepare() {
        RunOnHost("rm -rf T; mkdir -p T/Sub/Deep; cd T; for n in a b c; do printf $n >$n.txt; done; " +
                  preparation);
        program.HandOverFolder(L"\\T");
        program.Command(IDM_MENU_REFRESH);
        SetListFocus();
        Texts names = Files();
        names.insert(names.begin(), L"..");
        program.WaitForNames(names);
        program.List().Select(chosen);
    }
    void SetListFocus() {
        if (program.TreeHasFocus())
            program.Command(IDM_SOFTKEY_CHANGE_VIEW);
        program.WaitForListFocus();
    }

    /// As above, with the keyboard in the tree and \T\Sub selected there.
    void PrepareTree() {
        Prepare();
        program.HandOverFolder(L"\\T\\Sub");
        program.Command(IDM_SOFTKEY_CHANGE_VIEW);
        WaitFor("for the tree to have the keyboard", [&] { return program.TreeHasFocus(); });
    }

    /// Does something once for each place it passes, with the hand-over there, and looks at what came of it.
    template <class Act, class Check>
    void AtEachPlace(Act act, Check check, Pane pane = Pane::List) {
        constexpr unsigned tooMany = 100;
        unsigned place = 0;
        for (unsigned places = 1; place < places; ++place) {
            SCOPED_TRACE(place);
            pane == Pane::Tree ? PrepareTree() : Prepare();
            HandOverAt(program.Window(), place, handedOver);
            act();
            program.WaitUntilIdle();
            places = PlacesPassed(program.Window());
            ASSERT_LT(places, tooMany);
            check();
            EXPECT_EQ(device.NamesIn(L"\\Other"), (Texts{L"Two", L"one.txt"}));
            ExpectListShowsItsFolder();
            if (HasFailure())
                return;
        }
        EXPECT_GT(place, 1u) << "no message was let in";
    }
    void ExpectListShowsItsFolder() {
        EXPECT_FALSE(program.HasMessageBox());
        EXPECT_FALSE(program.HasDialog());
        Texts names = device.NamesIn(program.Folder());
        names.insert(names.begin(), L"..");
        EXPECT_TRUE(Eventually([&] {
            Texts shown = program.List().Names();
            std::ranges::sort(shown);
            return shown == names;
        })) << testing::PrintToString(program.List().Names())
            << " in " << Narrow(program.Folder());
    }
    /// Renames b.txt by keys.
    void RenameInList() {
        program.Command(IDM_FILE_RENAME);
        if (!program.List().NameEditor())
            return;
        Control(program.List().NameEditor()).SetText(L"new.txt");
        PressKey(VK_RETURN);
        WaitFor("for the end of the edit", [&] { return !program.List().NameEditor(); });
    }
    void ExpectOneFileRenamedAtMost() {
        const bool renamed = device.Exists(L"\\T\\new.txt");
        EXPECT_EQ(Files(), renamed ? (Texts{L"Sub", L"a.txt", L"c.txt", L"new.txt"})
                                   : (Texts{L"Sub", L"a.txt", L"b.txt", L"c.txt"}));
        if (renamed) {
            EXPECT_EQ(device.Content(L"\\T\\new.txt"), "b");
        }
    }
    /// Renames \T\Sub by keys.
    void RenameInTree() {
        program.Command(IDM_FILE_RENAME);
        if (!program.Tree().NameEditor())
            return;
        Control(program.Tree().NameEditor()).SetText(L"New");
        PressKey(VK_RETURN);
        WaitFor("for the end of the edit", [&] { return !program.Tree().NameEditor(); });
    }
    void ExpectOneFolderRenamedAtMost() {
        const std::wstring name = device.Exists(L"\\T\\New") ? L"New" : L"Sub";
        EXPECT_EQ(Files(), (Texts{name, L"a.txt", L"b.txt", L"c.txt"}));
        EXPECT_TRUE(device.IsFolder(L"\\T\\" + name + L"\\Deep"));
        EXPECT_TRUE(Eventually([&] { return program.Tree().ChildrenOf(L"\\T") == (Texts{name}); }));
    }
    /// Sends what is selected to \T\Sub.
    void SendTo(UINT command, const std::wstring& title) {
        program.PostCommand(command);
        Dialog chooser = program.WaitForDialog(title);
        TreeOf(chooser).Expand(L"\\T");
        TreeOf(chooser).Select(L"\\T\\Sub");
        chooser.Command(IDM_CHOOSER_OK);
        chooser.WaitUntilClosed();
        FinishJob();
    }
    /// The search has found its file wherever the list was taken meanwhile.
    void ExpectFoundAndLeave() {
        program.GoByAddressBar(L"File Search");
        EXPECT_EQ(program.List().Names(), Texts{L"b.txt"});
        program.HandOverFolder(L"\\T");
    }
    Texts Files() { return device.NamesIn(L"\\T"); }

    std::wstring handedOver = L"\\Other";
    std::string preparation; // on the host, in the folder worked in
    std::wstring chosen = L"b.txt";
};

TEST_F(LetInUi, RenamingInTheList) {
    AtEachPlace([&] { RenameInList(); }, [&] { ExpectOneFileRenamedAtMost(); });
}

TEST_F(LetInUi, RenamingInTheListThatIsReadAnew) {
    handedOver = L"\\T";
    AtEachPlace([&] { RenameInList(); }, [&] { ExpectOneFileRenamedAtMost(); });
}

TEST_F(LetInUi, RenamingInTheTree) {
    AtEachPlace([&] { RenameInTree(); }, [&] { ExpectOneFolderRenamedAtMost(); }, Pane::Tree);
}

TEST_F(LetInUi, RenamingInTheTreeThatIsReadAnew) {
    handedOver = L"\\T";
    AtEachPlace([&] { RenameInTree(); }, [&] { ExpectOneFolderRenamedAtMost(); }, Pane::Tree);
}

TEST_F(LetInUi, MakingAFolder) {
    AtEachPlace(
        [&] {
            program.Command(IDM_FILE_NEW_FOLDER);
            PressBack();
            WaitFor("for the end of the edit", [&] { return !program.List().NameEditor(); });
        },
        [&] {
            EXPECT_EQ(Files(), (Texts{L"New Folder", L"Sub", L"a.txt", L"b.txt", L"c.txt"}));
        });
}

TEST_F(LetInUi, Deleting) {
    AtEachPlace(
        [&] {
            program.PostCommand(IDM_FILE_DELETE);
            AnswerDelete(yesKey);
            FinishJob();
        },
        [&] {
            EXPECT_EQ(Files(), (Texts{L"Sub", L"a.txt", L"c.txt"}));
        });
}

TEST_F(LetInUi, DeletingAFolderOfTheTree) {
    AtEachPlace(
        [&] {
            program.PostCommand(IDM_FILE_DELETE);
            AnswerDelete(yesKey);
            FinishJob();
        },
        [&] {
            EXPECT_EQ(Files(), (Texts{L"a.txt", L"b.txt", L"c.txt"}));
        },
        Pane::Tree);
}

TEST_F(LetInUi, Moving) {
    AtEachPlace(
        [&] {
            Cut({L"b.txt"});
            program.List().Select(L"Sub");
            PressKey(VK_RETURN);
            program.WaitUntilIdle();
            Paste();
            FinishJob();
        },
        [&] {
            const std::wstring into = device.Exists(L"\\Other\\b.txt") ? L"\\Other" : L"\\T\\Sub";
            EXPECT_EQ(device.Content(into + L"\\b.txt"), "b");
            EXPECT_FALSE(device.Exists(L"\\T\\b.txt"));
            RunOnHost("rm -f Other/b.txt");
            if (program.Folder() == L"\\Other")
                program.Command(IDM_MENU_REFRESH);
        });
}

TEST_F(LetInUi, CopyingToAFolder) {
    AtEachPlace([&] { SendTo(IDM_SENDTO_COPY_TO, L"Copy file to"); },
                [&] {
                    EXPECT_EQ(device.Content(L"\\T\\Sub\\b.txt"), "b");
                    EXPECT_EQ(Files(), (Texts{L"Sub", L"a.txt", L"b.txt", L"c.txt"}));
                });
}

TEST_F(LetInUi, MovingToAFolder) {
    AtEachPlace([&] { SendTo(IDM_SENDTO_MOVE_TO, L"Move file to"); },
                [&] {
                    EXPECT_EQ(device.Content(L"\\T\\Sub\\b.txt"), "b");
                    EXPECT_EQ(Files(), (Texts{L"Sub", L"a.txt", L"c.txt"}));
                });
}

TEST_F(LetInUi, MakingAnArchive) {
    AtEachPlace(
        [&] {
            Dialog dialog = AskForArchive(program);
            SaveAs(program, dialog, L"\\T\\made.zip");
            FinishJob();
        },
        [&] {
            EXPECT_EQ(Files(), (Texts{L"Sub", L"a.txt", L"b.txt", L"c.txt", L"made.zip"}));
            RunOnHost("test \"$(unzip -Z1 T/made.zip)\" = b.txt");
        });
}

TEST_F(LetInUi, ExtractingAnArchive) {
    preparation = "zip -qm a.zip a.txt";
    chosen = L"a.zip";
    AtEachPlace(
        [&] {
            program.Command(IDM_FILE_EXTRACT_TO);
            FinishJob();
        },
        [&] {
            EXPECT_EQ(Files(), (Texts{L"Sub", L"a.txt", L"a.zip", L"b.txt", L"c.txt"}));
            EXPECT_EQ(device.Content(L"\\T\\a.txt"), "a");
        });
}

TEST_F(LetInUi, Searching) {
    AtEachPlace(
        [&] {
            program.PostCommand(IDM_FILE_SEARCH);
            Dialog dialog = program.WaitForDialog(L"File Search");
            dialog.Item(IDC_SEARCH_LOCATION).SetText(L"\\T");
            dialog.Item(IDC_SEARCH_NAME).SetText(L"b.txt");
            dialog.Command(IDM_SEARCH_OK);
            dialog.WaitUntilClosed();
        },
        [&] { ExpectFoundAndLeave(); });
}

TEST_F(LetInUi, MakingAFavourite) {
    AtEachPlace([&] { program.Command(IDM_FAVORITES_ADD); },
                [&] {
                    EXPECT_EQ(device.NamesIn(L"\\Windows\\Favorites").size(), 1u);
                    RunOnHost("rm -f Windows/Favorites/*");
                    EXPECT_EQ(Files(), (Texts{L"Sub", L"a.txt", L"b.txt", L"c.txt"}));
                });
}

TEST_F(LetInUi, CopyingAPath) {
    AtEachPlace([&] { program.Command(IDM_EDIT_COPY_PATH); },
                [&] { EXPECT_EQ(ClipboardText(), L"\\T\\b.txt"); });
}

TEST_F(LetInUi, ShowingTypesAndIcons) {
    AtEachPlace(
        [&] {
            program.HandOverFolder(L"\\My Documents");
            program.HandOverFolder(L"\\T");
            UpdateWindow(program.List().Window());
        },
        [&] {
            EXPECT_EQ(Files(), (Texts{L"Sub", L"a.txt", L"b.txt", L"c.txt"}));
        });
}

TEST_F(LetInUi, Properties) {
    AtEachPlace(
        [&] {
            program.PostCommand(IDM_MENU_PROPERTIES);
            Dialog properties = program.WaitForDialog(L"Properties");
            properties.Item(IDC_ENTRY_NAME).SetText(L"new.txt");
            properties.Command(IDM_PROPERTIES_OK);
            properties.WaitUntilClosed();
        },
        [&] { EXPECT_EQ(device.Content(L"\\T\\new.txt"), "b"); });
}

} // namespace
