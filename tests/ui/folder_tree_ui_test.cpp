// Screens: 240x320

// The nodes of the folder tree and the folders they stand for.

#include "tests/ui/tree_ui.h"

namespace {

class FolderTreeUi : public TreeUi {
  protected:
    /// Opens or closes a node by hand: by a tap on its button.
    void TapButton(const std::wstring& path) {
        Tap(Tree().ButtonPointOf(path));
        program.WaitUntilIdle();
    }
};

enum Image {
    DeviceImage,
    FolderImage,
    FolderOpenImage,
    CardImage,
    DocumentsImage,
    StartMenuImage,
    NetworkImage,
    SearchImage
};

TEST_F(FolderTreeUi, ShowsTheDeviceItsFoldersAndTheSearchResults) {
    StartWithTree();
    EXPECT_EQ(StyleOf(Tree().Window()), 0x5081002Bu);
    EXPECT_EQ(Tree().RootText(), L"My PocketPC");
    EXPECT_EQ(Tree().ChildrenOf(L""),
              (Texts{L"My Documents", L"Network", L"Program Files", L"Temp", L"Windows"}));
    EXPECT_TRUE(Tree().At(L"").expanded);
    EXPECT_EQ(Tree().At(L"").image, DeviceImage);
    EXPECT_EQ(Tree().Nodes().back().text, L"File Search");
    EXPECT_EQ(Tree().Nodes().back().depth, 0);
    EXPECT_EQ(Tree().At(L"File Search").image, SearchImage);
    EXPECT_EQ(Tree().SelectedPath(), L"");
}

TEST_F(FolderTreeUi, KnowsFoldersByTheirImages) {
    device.Folder(L"\\Temp\\my documents");
    device.Folder(L"\\Temp\\START MENU");
    device.StorageCard("Storage Card", {"DCIM/1.jpg"});
    StartWithTree();
    EXPECT_EQ(Tree().At(L"\\My Documents").image, DocumentsImage);
    EXPECT_EQ(Tree().At(L"\\Network").image, NetworkImage);
    EXPECT_EQ(Tree().At(L"\\Storage Card").image, CardImage);
    EXPECT_TRUE(Tree().At(L"\\Storage Card").hasButton);
    EXPECT_EQ(Tree().At(L"\\Temp").image, FolderImage);
    Tree().Expand(L"\\Temp");
    EXPECT_EQ(Tree().At(L"\\Temp\\my documents").image, DocumentsImage);
    EXPECT_EQ(Tree().At(L"\\Temp\\START MENU").image, StartMenuImage);
    Tree().Expand(L"\\Storage Card");
    EXPECT_EQ(Tree().ChildrenOf(L"\\Storage Card"), Texts{L"DCIM"});
}

TEST_F(FolderTreeUi, ShowsHiddenAndSystemFoldersAndNeverRecycled) {
    for (const wchar_t* name :
         {L"hidden", L"system", L"Recycled", L"only\\RECYCLED", L"two\\recycled", L"two\\b"})
        device.Folder(std::wstring(L"\\Temp\\Home\\") + name);
    device.SetAttributes(L"\\Temp\\Home\\hidden", FILE_ATTRIBUTE_HIDDEN);
    device.SetAttributes(L"\\Temp\\Home\\system", FILE_ATTRIBUTE_SYSTEM);
    device.File(L"\\Temp\\Home\\file.txt");
    StartWithTree(L"\\Temp\\Home");
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home"), (Texts{L"hidden", L"only", L"system", L"two"}));
    EXPECT_FALSE(Tree().At(L"\\Temp\\Home\\only").hasButton);
    EXPECT_TRUE(Tree().At(L"\\Temp\\Home\\two").hasButton);
    Tree().Expand(L"\\Temp\\Home\\two");
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home\\two"), Texts{L"b"});
}

TEST_F(FolderTreeUi, ReadsAFolderAgainWheneverItIsOpenedAndKeepsWhatIsOpenInIt) {
    device.Folder(L"\\Temp\\Home\\a\\b\\c");
    device.Folder(L"\\Temp\\Home\\gone");
    device.Folder(L"\\Temp\\Home\\leaf");
    device.Folder(L"\\Temp\\Home\\emptied\\x");
    StartWithTree(L"\\Temp");
    TapButton(L"\\Temp\\Home");
    TapButton(L"\\Temp\\Home\\a");
    TapButton(L"\\Temp\\Home\\a\\b");
    TapButton(L"\\Temp\\Home\\emptied");
    TapButton(L"\\Temp\\Home\\emptied"); // closed again, its node kept
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home"), (Texts{L"a", L"emptied", L"gone", L"leaf"}));
    TapButton(L"\\Temp\\Home");
    EXPECT_FALSE(Tree().At(L"\\Temp\\Home").expanded);
    EXPECT_TRUE(Tree().Has(L"\\Temp\\Home\\a\\b\\c")) << "closing takes no node away";

    device.Remove(L"\\Temp\\Home\\gone");
    device.Remove(L"\\Temp\\Home\\emptied\\x");
    device.Folder(L"\\Temp\\Home\\fresh\\x");
    device.Folder(L"\\Temp\\Home\\leaf\\x");
    TapButton(L"\\Temp\\Home");
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home"), (Texts{L"a", L"emptied", L"fresh", L"leaf"}));
    EXPECT_TRUE(Tree().At(L"\\Temp\\Home\\a").expanded);
    EXPECT_TRUE(Tree().At(L"\\Temp\\Home\\a\\b").expanded);
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home\\a\\b"), Texts{L"c"});
    EXPECT_TRUE(Tree().At(L"\\Temp\\Home\\fresh").hasButton);
    EXPECT_TRUE(Tree().At(L"\\Temp\\Home\\leaf").hasButton) << "its first folder came meanwhile";
    EXPECT_FALSE(Tree().At(L"\\Temp\\Home\\emptied").hasButton) << "its last folder went meanwhile";
}

TEST_F(FolderTreeUi, AnEmptiedFolderLosesItsButtonWhenItIsOpened) {
    device.Folder(L"\\Temp\\Home\\a");
    StartWithTree(L"\\Temp");
    EXPECT_TRUE(Tree().At(L"\\Temp\\Home").hasButton);
    device.Remove(L"\\Temp\\Home\\a");
    TapButton(L"\\Temp\\Home");
    EXPECT_FALSE(Tree().At(L"\\Temp\\Home").hasButton);
    EXPECT_TRUE(Tree().ChildrenOf(L"\\Temp\\Home").empty());
}

TEST_F(FolderTreeUi, AFolderThatRefusesReadingHasNoFolders) {
    device.Folder(L"\\Temp\\Locked\\a");
    StartWithTree(L"\\Temp");
    EXPECT_TRUE(Tree().At(L"\\Temp\\Locked").hasButton);
    device.Forbid("Temp/Locked");
    TapButton(L"\\Temp\\Locked");
    EXPECT_FALSE(Tree().At(L"\\Temp\\Locked").hasButton);
    program.Command(IDM_MENU_REFRESH);
    EXPECT_FALSE(Tree().At(L"\\Temp\\Locked").hasButton);
}

TEST_F(FolderTreeUi, LinksOfTheHostAreFoldersOneStepAtATime) {
    device.HostFolder("Temp/Home/real/inner");
    device.HostLink("Temp/Home/away", "real");
    device.HostLink("Temp/Home/loop", "../Home");
    device.HostLink("Temp/Home/self", "self");
    StartWithTree(L"\\Temp\\Home");
    const Texts names = Tree().ChildrenOf(L"\\Temp\\Home");
    for (const wchar_t* name : {L"away", L"loop", L"real"})
        EXPECT_TRUE(Tree().Has(std::wstring(L"\\Temp\\Home\\") + name));
    Tree().Expand(L"\\Temp\\Home\\away");
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home\\away"), Texts{L"inner"});
    Tree().Expand(L"\\Temp\\Home\\loop");
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home\\loop"), names);
    EXPECT_TRUE(Tree().ChildrenOf(L"\\Temp\\Home\\loop\\loop").empty()) << "only what is opened is read";
}

TEST_F(FolderTreeUi, AChainOfLinksEndsWhereNoPathIsLongEnough) {
    const std::string name(80, 'l');
    device.HostLink("Temp/" + name, ".");
    StartWithTree(L"\\Temp");
    std::wstring path = L"\\Temp";
    for (int depth = 0; depth < 10 && Tree().At(path).hasButton; ++depth) {
        Tree().Expand(path);
        const Texts children = Tree().ChildrenOf(path);
        ASSERT_FALSE(children.empty());
        path += L"\\" + children.front();
    }
    EXPECT_LE(path.size(), 259u);
    EXPECT_FALSE(Tree().At(path).hasButton);
    Tap(Tree().PointOf(path));
    program.WaitForFolder(path);
}

TEST_F(FolderTreeUi, StarOpensOneFolderWhereLinksLeadRoundAndRound) {
    device.HostLink("A/B/Back", "../..");
    device.HostLink("A/B/Up", "..");
    StartWithTree();
    FocusTree();
    Tree().Select(L"\\A");
    PressKey(VK_MULTIPLY);
    WaitFor("for the folder to open", [&] { return Tree().Has(L"\\A\\B"); });
    program.WaitUntilIdle();
    EXPECT_EQ(Tree().ChildrenOf(L"\\A\\B"), Texts{});
}

TEST_F(FolderTreeUi, RefreshReadsAllAnewAndOpensTheWayToTheListsFolder) {
    device.Folder(L"\\Temp\\Home\\a");
    device.Folder(L"\\Temp\\Other\\b");
    StartWithTree(L"\\Temp\\Home");
    Tree().Expand(L"\\Temp\\Other");
    Tree().Expand(L"\\Windows");
    FocusTree();
    device.Folder(L"\\Zoo");
    device.Remove(L"\\Network");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(Tree().ChildrenOf(L""),
              (Texts{L"My Documents", L"Program Files", L"Temp", L"Windows", L"Zoo"}));
    EXPECT_TRUE(Tree().At(L"\\Temp").expanded);
    EXPECT_FALSE(Tree().At(L"\\Windows").expanded);
    EXPECT_FALSE(Tree().At(L"\\Temp\\Other").expanded);
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp\\Home");
    EXPECT_EQ(program.Folder(), L"\\Temp\\Home");
    EXPECT_TRUE(program.TreeHasFocus());
    EXPECT_TRUE(program.TreeIsShown());
}

TEST_F(FolderTreeUi, RefreshLeavesAHiddenTreeHidden) {
    program.Start(L"\\Temp");
    EXPECT_FALSE(program.TreeIsShown());
    program.Command(IDM_MENU_REFRESH);
    EXPECT_FALSE(program.TreeIsShown());
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp");
}

TEST_F(FolderTreeUi, ManySiblingFoldersOpenQuickly) {
    RunOnHost("mkdir -p Temp/Many && cd Temp/Many && seq -f 'f%05.0f' 1 3000 | xargs mkdir");
    StartWithTree(L"\\Temp");
    const ULONGLONG start = GetTickCount64();
    TapButton(L"\\Temp\\Many");
    EXPECT_LT(GetTickCount64() - start, 10000u);
    EXPECT_EQ(static_cast<int>(Ask(Tree().Window(), TVM_GETCOUNT)), 3000 + 8);
}

TEST_F(FolderTreeUi, LooksOnlyIntoFoldersThatItDraws) {
    RunOnHost("mkdir -p Temp/Many && cd Temp/Many && seq -f 'f%04.0f/sub' 1 500 | xargs mkdir -p");
    StartWithTree(L"\\Temp");
    program.WaitUntilIdle();
    LooksOf(program.Window());
    const auto drawn = static_cast<UINT>(Ask(Tree().Window(), TVM_GETVISIBLECOUNT)) + 1;
    constexpr UINT inVisit = 6; // the list's own, the root's and the folder's among them
    for (const wchar_t* visited : {L"\\Temp\\Many", L"\\Temp\\Many\\f0250", L"\\Temp\\Many"}) {
        SCOPED_TRACE(Narrow(visited));
        program.HandOverFolder(visited);
        UpdateWindow(Tree().Window());
        program.WaitUntilIdle();
        EXPECT_LE(LooksOf(program.Window()), drawn + inVisit);
    }
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Many").size(), 500u);
    EXPECT_TRUE(Tree().At(L"\\Temp\\Many\\f0400").hasButton);
}

TEST_F(FolderTreeUi, AHiddenTreeReadsNoFolderTwiceAndCatchesUpWhenItIsShown) {
    device.Folder(L"\\Temp\\Home\\a\\inner");
    device.Folder(L"\\Temp\\Home\\gone\\inner");
    StartWithTree(L"\\Temp\\Home");
    Tree().Expand(L"\\Temp\\Home");
    Tree().Expand(L"\\Temp\\Home\\gone");
    program.Command(IDM_VIEW_FOLDER_TREE);
    ASSERT_FALSE(program.TreeIsShown());
    device.Remove(L"\\Temp\\Home\\gone\\inner");
    device.Remove(L"\\Temp\\Home\\gone");
    device.Folder(L"\\Temp\\Home\\fresh\\x");
    LooksOf(program.Window());
    program.Command(IDM_TOOLBAR_GO_TO); // the address, which is this folder's
    EXPECT_EQ(LooksOf(program.Window()), 1u);

    program.HandOverFolder(L"\\Temp\\Home\\fresh");
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp\\Home\\fresh") << "what the keys would act on";
    program.HandOverFolder(L"\\Temp");
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp");
    device.Folder(L"\\Temp\\Home\\late");
    program.HandOverFolder(L"\\Temp\\Home");
    program.Command(IDM_VIEW_FOLDER_TREE);
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp\\Home"), (Texts{L"a", L"fresh", L"late"}));
    EXPECT_TRUE(Tree().At(L"\\Temp\\Home").expanded);
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp\\Home");
    EXPECT_EQ(program.Folder(), L"\\Temp\\Home");
}

TEST_F(FolderTreeUi, AHiddenTreeCatchesUpWhenItGetsTheKeyboard) {
    device.Folder(L"\\Temp\\Home");
    program.Start(L"\\Temp\\Home");
    device.Folder(L"\\Temp\\Home\\fresh");
    program.Command(IDM_MENU_REFRESH);
    PressKey(VK_TAB);
    WaitFor("for the tree to have the keyboard", [&] { return program.TreeHasFocus(); });
    PressKey(VK_RIGHT);
    EXPECT_TRUE(Eventually([&] { return Tree().ChildrenOf(L"\\Temp\\Home") == Texts{L"fresh"}; }));
}

TEST_F(FolderTreeUi, ATreeThatIsBroughtUpShowsTheFolderOfTheList) {
    for (int number = 0; number < 30; ++number)
        device.Folder(L"\\Temp\\Folder " + std::to_wstring(number));
    device.WriteNumber(settingsKey, L"ShowFolder", 0);
    program.Start(L"\\Temp\\Folder 5");
    program.Command(IDM_VIEW_FOLDER_TREE);
    const auto relative = [&](UINT relation, LRESULT item) {
        return Ask(Tree().Window(), TVM_GETNEXTITEM, relation, item);
    };
    const auto selected = reinterpret_cast<LRESULT>(Tree().At(L"\\Temp\\Folder 5").item);
    LRESULT item = relative(TVGN_FIRSTVISIBLE, 0);
    for (LRESULT count = Ask(Tree().Window(), TVM_GETVISIBLECOUNT); item != selected && count > 1; --count)
        item = relative(TVGN_NEXTVISIBLE, item);
    EXPECT_EQ(item, selected);
}

} // namespace
