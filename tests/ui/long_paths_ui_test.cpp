// Screens: 240x320

// Jobs on trees whose paths are, or would become, longer than a path may be.

#include <algorithm>

#include "tests/ui/job_ui.h"

namespace {

constexpr std::size_t longestPath = 259;

class LongPathsUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.File(L"\\From\\a.txt", "a");
        device.Folder(L"\\To");
    }

    /// A folder below `folder` whose path has this length, made of names that every host takes.
    std::wstring FolderOfLength(const std::wstring& folder, std::size_t length) {
        std::wstring path = folder;
        while (path.size() < length) {
            const std::size_t left = length - path.size();
            const std::size_t name = left > 102 ? 100 : left - 1;
            path += L"\\" + std::wstring(name, L'd');
        }
        EXPECT_EQ(path.size(), length);
        device.HostFolder(OnHost(path));
        return path;
    }
    static std::string OnHost(const std::wstring& path) {
        std::string name = Narrow(path.substr(1));
        std::ranges::replace(name, '\\', '/');
        return name;
    }
    void HostFile(const std::wstring& path, const std::string& content) {
        device.HostFile(OnHost(path), content);
    }
    /// What the host finds below a folder, as one text.
    std::string Below(const std::string& folder) {
        RunOnHost("find '" + folder +
                  "' -printf '%p %s\\n' | sort >\"$TARVIK_WORK/below\"\n"
                  "cp \"$TARVIK_WORK/below\" below");
        const std::string text = device.Content(L"\\below");
        RunOnHost("rm below");
        return text;
    }
};

} // namespace

TEST_F(LongPathsUi, AFolderThatWouldBecomeTooLongIsNotTouched) {
    const std::wstring deep = FolderOfLength(L"\\From\\Tree", 200);
    HostFile(deep + L"\\" + std::wstring(30, L'f'), "deep");
    HostFile(L"\\From\\Tree\\first", "first");
    const std::wstring target = FolderOfLength(L"\\To", 60);
    const std::string before = Below("From");
    StartIn(L"\\From");
    for (const bool moves : {false, true}) {
        SCOPED_TRACE(moves);
        Show(L"\\From");
        if (moves)
            Cut({L"a.txt", L"Tree"});
        else
            Copy({L"a.txt", L"Tree"});
        Show(target);
        Paste();
        EXPECT_EQ(ReadMessage(), L"'Tree' cannot be copied.");
        FinishJob();
        EXPECT_EQ(device.NamesIn(target), Texts{});
        EXPECT_EQ(Below("From"), before);
    }
}

TEST_F(LongPathsUi, WhatJustFitsIsTakenAlong) {
    const std::wstring deep = FolderOfLength(L"\\From\\Tree", 200);
    const std::wstring below = deep.substr(std::wstring(L"\\From").size());
    const std::wstring target = FolderOfLength(L"\\To", 40);
    const std::size_t room = longestPath - target.size() - below.size() - 1;
    HostFile(deep + L"\\" + std::wstring(room, L'f'), "deep");
    StartIn(L"\\From");
    Copy({L"Tree"});
    Show(target);
    PasteAll();
    const std::wstring copied = target + below + L"\\" + std::wstring(room, L'f');
    EXPECT_EQ(copied.size(), longestPath);
    RunOnHost("test \"$(cat '" + OnHost(copied) + "')\" = deep");
}

TEST_F(LongPathsUi, ATreeThatHoldsATooLongPathIsNotTouched) {
    const std::wstring deep = FolderOfLength(L"\\From\\Tree", 240);
    HostFile(deep + L"\\" + std::wstring(30, L'f'), "too deep");
    HostFile(L"\\From\\Tree\\first", "first");
    const std::string before = Below("From");
    StartIn(L"\\From");
    Select({L"a.txt", L"Tree"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(allKey);
    EXPECT_EQ(ReadMessage(), L"'Tree' cannot be deleted.");
    FinishJob();
    EXPECT_EQ(Below("From"), before);
    Cut({L"a.txt", L"Tree"});
    Show(L"\\To");
    Paste();
    EXPECT_EQ(ReadMessage(), L"'Tree' cannot be copied.");
    FinishJob();
    EXPECT_EQ(Below("From"), before);
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{});
}

TEST_F(LongPathsUi, ASearchResultIsMeasuredWhereItLies) {
    const std::wstring deep = FolderOfLength(L"\\From\\Tree", 240);
    HostFile(deep + L"\\" + std::wstring(30, L'f'), "too deep");
    StartIn(L"\\To");
    program.Search(L"Tree", L"\\From");
    const std::string before = Below("From");
    Cut({L"Tree"});
    Show(L"\\To");
    Paste();
    EXPECT_EQ(ReadMessage(), L"'Tree' cannot be copied.");
    FinishJob();
    EXPECT_EQ(Below("From"), before);
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{});
}

TEST_F(LongPathsUi, ACopyInItsOwnFolderIsMeasuredWithItsNewName) {
    const std::wstring home = FolderOfLength(L"\\From", 200);
    const std::wstring name(longestPath - home.size() - 1 - 7, L'n'); // "copy of " is one longer
    HostFile(home + L"\\" + name, "n");
    HostFile(home + L"\\b", "b");
    StartIn(home);
    Copy({L"b", name});
    Paste();
    EXPECT_EQ(ReadMessage(), L"'" + name + L"' cannot be copied.");
    FinishJob();
    EXPECT_EQ(device.NamesIn(home), (Texts{L"b", name}));
}

TEST_F(LongPathsUi, AFileIsReplacedInFoldersOfAnyLength) {
    StartIn(L"\\From");
    for (const std::size_t length : {247u, 248u, 252u, 255u}) {
        SCOPED_TRACE(length);
        const std::wstring target = FolderOfLength(L"\\To", length);
        const std::wstring name(std::min<std::size_t>(3, longestPath - length - 1), L'x');
        device.HostFile("From/" + Narrow(name), "new");
        HostFile(target + L"\\" + name, "old");
        for (const bool moves : {false, true}) {
            SCOPED_TRACE(moves);
            Show(L"\\From");
            if (moves)
                Cut({name});
            else
                Copy({name});
            Show(target);
            Paste();
            AnswerFile(yesKey);
            FinishJob();
            RunOnHost("test \"$(cat '" + OnHost(target) + "/" + Narrow(name) +
                      "')\" = new\n"
                      "printf old >'" +
                      OnHost(target) + "/" + Narrow(name) + "'");
        }
        EXPECT_FALSE(device.Exists(L"\\From\\" + name));
        Show(L"\\From");
        RunOnHost("! find . -name '~job*' | grep .; rm -rf To/*");
    }
}
