// Screens: 240x320

// Shortcuts: what they are called, what they hold, and that they lead where they should.

#include <stdexcept>

#include "tests/ui/name_editor_ui.h"

#include <shlobj.h>

namespace {

const std::wstring home = L"\\Temp\\Home";

/// Has the desktop's own shell make a link file to a path of the desktop's.
void MakeShellLink(const std::wstring& file, const wchar_t* target) {
    const auto require = [](HRESULT result) {
        if (FAILED(result))
            throw std::runtime_error("no shell link: error " + std::to_string(result));
    };
    require(CoInitialize(nullptr));
    IShellLinkW* link = nullptr;
    IPersistFile* stored = nullptr;
    require(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                             reinterpret_cast<void**>(&link)));
    require(link->SetPath(target));
    require(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&stored)));
    require(stored->Save((L"E:" + file).c_str(), TRUE));
    stored->Release();
    link->Release();
    CoUninitialize();
}

class ShortcutUi : public NameEditorUi {
  protected:
    void StartHere() {
        ShowExtensions();
        StartIn(home);
    }
    void KeepExtensions() {
        ShowExtensions();
        device.WriteNumber(settingsKey, L"NoExtShortcut", 0);
    }
    void ShortcutTo(const std::wstring& shownName) {
        List().Select(shownName);
        program.Command(IDM_FILE_SHORTCUT);
    }
    void OpenIt(const std::wstring& shownName) {
        List().Select(shownName);
        program.PostCommand(IDM_FILE_OPEN);
    }
};

// --- Names ---

TEST_F(ShortcutUi, ANameSaysThatItIsAShortcutAndNumbersFollow) {
    KeepExtensions();
    device.File(home + L"\\x.txt");
    StartIn(home);
    for (int i = 0; i < 3; ++i)
        ShortcutTo(L"x.txt");
    EXPECT_EQ(device.NamesIn(home), (Texts{L"Shortcut to x.txt (2).lnk", L"Shortcut to x.txt (3).lnk",
                                           L"Shortcut to x.txt.lnk", L"x.txt"}));
    EXPECT_TRUE(List().Has(L"Shortcut to x.txt (2).lnk")) << "the folder is listed anew";
    ExpectNoMessage();
}

TEST_F(ShortcutUi, TheMentionCanBeLeftOut) {
    KeepExtensions();
    device.SetOption(ListOption::NoShortcutMention, 1);
    device.File(home + L"\\x.txt");
    StartIn(home);
    ShortcutTo(L"x.txt");
    ShortcutTo(L"x.txt");
    EXPECT_EQ(device.NamesIn(home), (Texts{L"x.txt", L"x.txt (2).lnk", L"x.txt.lnk"}));
}

TEST_F(ShortcutUi, TheTargetsExtensionCanBeLeftOut) {
    ShowExtensions();
    device.WriteNumber(settingsKey, L"NoExtShortcut", 1);
    device.File(home + L"\\x.txt");
    device.File(home + L"\\a.tar.gz");
    device.File(home + L"\\README");
    device.Folder(home + L"\\old.dir");
    StartIn(home);
    for (const wchar_t* name : {L"x.txt", L"a.tar.gz", L"README", L"old.dir"})
        ShortcutTo(name);
    EXPECT_EQ(device.NamesIn(home),
              (Texts{L"README", L"Shortcut to README.lnk", L"Shortcut to a.tar.lnk", L"Shortcut to old.lnk",
                     L"Shortcut to x.lnk", L"a.tar.gz", L"old.dir", L"x.txt"}));
}

TEST_F(ShortcutUi, ExtensionsThatAreNotShownAreLeftOutToo) {
    device.SetOption(ListOption::NoExtension, 1);
    device.SetOption(ListOption::NoShortcutMention, 1);
    device.WriteNumber(settingsKey, L"NoExtShortcut", 0);
    device.File(home + L"\\x.txt");
    StartIn(home);
    ShortcutTo(L"x");
    EXPECT_EQ(device.NamesIn(home), (Texts{L"x.lnk", L"x.txt"}));
    EXPECT_EQ(device.Content(home + L"\\x.lnk"), "18#\"\\Temp\\Home\\x.txt\"");
}

TEST_F(ShortcutUi, NeverIsAFilePutInAnothersPlace) {
    device.SetOption(ListOption::NoShortcutMention, 1);
    ShowExtensions();
    device.File(home + L"\\x.txt");
    device.File(home + L"\\x.lnk", "mine");
    StartIn(home);
    ShortcutTo(L"x.txt");
    EXPECT_EQ(device.Content(home + L"\\x.lnk"), "mine");
    EXPECT_EQ(device.NamesIn(home), (Texts{L"x (2).lnk", L"x.lnk", L"x.txt"}));
}

TEST_F(ShortcutUi, After511NamesItGivesUpSilently) {
    device.HostFolder("Temp/Home");
    device.HostFile("Temp/Home/x.txt");
    RunOnHost("cd Temp/Home && touch 'Shortcut to x.lnk' && seq 2 510 | sed 's/.*/Shortcut to x (&).lnk/' | "
              "tr '\\n' '\\0' | xargs -0 touch");
    StartHere();
    ShortcutTo(L"x.txt");
    EXPECT_TRUE(device.Exists(home + L"\\Shortcut to x (511).lnk")) << "the last that is tried";
    EXPECT_EQ(device.NamesIn(home).size(), 512u);
    ShortcutTo(L"x.txt");
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(home).size(), 512u);
}

TEST_F(ShortcutUi, APathWithoutRoomGivesNoneSilently) {
    ShowExtensions();
    const std::wstring deep = L"\\Temp\\" + std::wstring(120, L'a') + L"\\" + std::wstring(110, L'b');
    device.File(deep + L"\\0123456789.txt");
    StartIn(deep);
    ShortcutTo(L"0123456789.txt");
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(deep), Texts{L"0123456789.txt"});
}

TEST_F(ShortcutUi, AFolderThatTakesNoneIsLeftAloneSilently) {
    device.File(home + L"\\x.txt");
    StartHere();
    RunOnHost("chmod a-w Temp/Home");
    ShortcutTo(L"x.txt");
    ExpectNoMessage();
    RunOnHost("chmod u+w Temp/Home");
    EXPECT_EQ(device.NamesIn(home), Texts{L"x.txt"});
}

// --- What they hold ---

TEST_F(ShortcutUi, TheTargetStandsInQuotationMarks) {
    device.File(home + L"\\a b.txt");
    StartHere();
    ShortcutTo(L"a b.txt");
    EXPECT_EQ(device.Content(home + L"\\Shortcut to a b.lnk"), "20#\"\\Temp\\Home\\a b.txt\"");
}

TEST_F(ShortcutUi, AnEntryOfTheRootHasOneBackslash) {
    ShowExtensions();
    device.File(L"\\x.txt");
    program.Start();
    ShortcutTo(L"x.txt");
    EXPECT_EQ(device.Content(L"\\Shortcut to x.lnk"), "8#\"\\x.txt\"");
}

TEST_F(ShortcutUi, EverySelectedEntryGetsOneAlsoTheWayUp) {
    device.Files(home, L"f", 3);
    device.Folder(home + L"\\folder");
    StartHere();
    program.Command(IDM_EDIT_SELECT_ALL);
    program.Command(IDM_FILE_SHORTCUT);
    for (const wchar_t* name : {L"f0", L"f1", L"f2", L"folder"})
        EXPECT_TRUE(device.Exists(home + L"\\Shortcut to " + name + L".lnk")) << Narrow(name);
    EXPECT_EQ(device.Content(home + L"\\Shortcut to folder.lnk"), "19#\"\\Temp\\Home\\folder\"");
}

// --- Where they lead ---

TEST_F(ShortcutUi, OneThatWasMadeOpensItsFolder) {
    device.Folder(home + L"\\a folder");
    StartHere();
    ShortcutTo(L"a folder");
    OpenIt(L"Shortcut to a folder.lnk");
    program.WaitForFolder(home + L"\\a folder");
}

TEST_F(ShortcutUi, OneOfTheDesktopsShellOpensItsFolder) {
    device.Folder(L"\\Temp\\Far");
    device.Folder(home);
    MakeShellLink(home + L"\\real.lnk", L"E:\\Temp\\Far");
    const std::string content = device.Content(home + L"\\real.lnk");
    ASSERT_EQ(content.substr(0, 4), std::string("L\0\0\0", 4));
    StartHere();
    OpenIt(L"real.lnk");
    program.WaitForFolder(L"\\Temp\\Far");
}

TEST_F(ShortcutUi, OnesThatAreOddOrCutShortDoNoHarm) {
    device.Folder(L"\\Temp\\Far");
    device.Folder(home);
    MakeShellLink(home + L"\\real.lnk", L"E:\\Temp\\Far");
    const std::string whole = device.Content(home + L"\\real.lnk");
    for (std::size_t length = 1; length < whole.size(); length += 13)
        device.File(home + L"\\cut" + std::to_wstring(length) + L".lnk", whole.substr(0, length));
    device.File(home + L"\\empty.lnk");
    device.File(home + L"\\big.lnk", "99999999#\\Temp");
    device.File(home + L"\\long.lnk", "5000#" + std::string(5000, 'x'));
    StartHere();
    program.Command(IDM_VIEW_DETAILED); // icons are asked for by the target
    for (int row = 0; row < List().Count(); ++row)
        List().PointOf(row);
    program.WaitUntilIdle();
    EXPECT_EQ(device.NamesIn(home).size(), static_cast<std::size_t>(List().Count()) - 1);
    for (const wchar_t* name : {L"empty.lnk", L"long.lnk", L"cut1.lnk"}) {
        OpenIt(name);
        program.WaitUntilIdle();
    }
    program.HandOverFolder(home);
    EXPECT_TRUE(program.IsRunning());
}

} // namespace
