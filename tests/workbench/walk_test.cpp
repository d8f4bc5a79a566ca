// The way through the program that every program goes: lists, the tree, menus, dialogs and jobs, by keys, the
// stylus and commands.

#include "tests/workbench/walk.h"

namespace {

constexpr int atLeast = 500;

class WalkThrough : public Walk {
  protected:
    void LookAtTheList();
    void Sort();
    void OpenTheMenus();
    void OpenContextMenus();
    void UseTheTree();
    void DoJobs();
    void Rename();
    void OpenDialogs();
    void ChangeOptions();
    void GoPlaces();
    void SearchFiles();
    void Drag();
};

void WalkThrough::LookAtTheList() {
    for (const UINT style :
         {IDM_VIEW_LARGE, IDM_VIEW_SMALL, IDM_VIEW_LIST, IDM_VIEW_DETAILED, IDM_VIEW_DETAILED_LINE}) {
        Give(style);
        Keys({VK_HOME, VK_DOWN, VK_DOWN, VK_RIGHT, VK_LEFT, VK_END, VK_UP, VK_PRIOR, VK_NEXT, VK_HOME});
        Key(VK_DOWN, Shift);
        Key(VK_DOWN, Shift);
        TapRow(L"beta.doc");
        TapRow(L"gamma.txt", Ctrl);
    }
    Give(IDM_EDIT_REVERSE_SELECTION);
    Give(IDM_EDIT_SELECT_ALL);
    Give(IDM_EDIT_RELEASE_SELECTION);
}

void WalkThrough::Sort() {
    for (const UINT order : {IDM_ARRANGE_TYPE, IDM_ARRANGE_SIZE, IDM_ARRANGE_DATE, IDM_ARRANGE_NAME}) {
        Give(order);
        Give(IDM_ARRANGE_REVERSE);
        Give(IDM_ARRANGE_REVERSE);
    }
    for (const int column : {0, 0, 1, 1, 0})
        Step("tap title", [&] { Tap(program.List().ColumnTitlePoint(column)); });
}

void WalkThrough::OpenTheMenus() {
    constexpr int entries = 10;
    Step("menu", [] { PressRightSoftKey(); });
    for (int entry = 0; entry < entries; ++entry)
        Keys({VK_DOWN, VK_RIGHT, VK_LEFT});
    Keys({VK_ESCAPE, VK_ESCAPE});
    CloseAll("the menu");
}

void WalkThrough::OpenContextMenus() {
    for (const wchar_t* name : {L"alpha.txt", L"Inner", L"epsilon.bmp"}) {
        HoldRow(name);
        Keys({VK_DOWN, VK_DOWN, VK_UP, VK_ESCAPE});
    }
    Select({L"alpha.txt", L"beta.doc"});
    HoldRow(L"beta.doc");
    Key(VK_ESCAPE);
    Step("hold nothing", [&] { TapAndHold(program.List().EmptyPoint(), 1500); });
    Keys({VK_DOWN, VK_ESCAPE});
    CloseAll("the menus of the list");
}

void WalkThrough::UseTheTree() {
    Pause(longPause);
    Give(IDM_VIEW_FOLDER_TREE);
    Give(IDM_SOFTKEY_CHANGE_VIEW);
    Keys({VK_HOME, VK_DOWN, VK_DOWN, VK_RIGHT, VK_DOWN, VK_LEFT, VK_END, VK_UP, VK_HOME});
    for (const wchar_t* path : {L"\\Walk", L"\\Walk\\Inner", L"\\Walk\\Inner\\Deep", L"\\Walk\\Other"}) {
        Step("tap node", [&] { Tap(program.Tree().PointOf(path)); });
        Key(VK_RIGHT);
    }
    Step("close node", [&] { Tap(program.Tree().ButtonPointOf(L"\\Walk\\Inner")); });
    Step("hold node", [&] { TapAndHold(program.Tree().PointOf(L"\\Walk\\Inner"), 1500); });
    Keys({VK_DOWN, VK_ESCAPE});
    Give(IDM_FILE_RENAME);
    Type(L"Inside");
    Key(VK_RETURN);
    Give(IDM_FILE_RENAME);
    Type(L"Inner");
    Key(VK_RETURN);
    Give(IDM_VIEW_SIDE);
    Give(IDM_VIEW_SIDE);
    Go(L"\\Walk");
    Give(IDM_SOFTKEY_CHANGE_VIEW);
    Give(IDM_VIEW_FOLDER_TREE);
    Pause(shortPause);
    CloseAll("the tree");
}

void WalkThrough::DoJobs() {
    Select({L"alpha.txt", L"Inner"});
    Give(IDM_TOOLBAR_COPY);
    Give(IDM_TOOLBAR_PASTE);
    Give(IDM_TOOLBAR_PASTE);
    Go(L"\\Walk\\Other");
    Give(IDM_TOOLBAR_PASTE);
    Answer(IDM_ANSWER_NO);
    Give(IDM_TOOLBAR_PASTE);
    Answer(IDYES);
    Answer(IDM_ANSWER_YES);
    Answer(IDM_ANSWER_ALL);
    Give(IDM_TOOLBAR_PASTE_SHORTCUT);
    Select({L"four.txt"});
    Give(IDM_TOOLBAR_CUT);
    Go(L"\\Walk\\Inner");
    Give(IDM_TOOLBAR_PASTE);
    Select({L"two.txt"});
    Give(IDM_FILE_DELETE);
    Answer(IDM_ANSWER_NO);
    Give(IDM_FILE_DELETE);
    Answer(IDM_ANSWER_YES);
    Give(IDM_FILE_SHORTCUT);
    Go(L"\\Walk");
    Select({L"copy of alpha.txt", L"copy of Inner"});
    Give(IDM_FILE_DELETE);
    Answer(IDM_ANSWER_ALL);
    Select({L"gamma.txt"});
    Give(IDM_FILE_DELETE);
    Answer(IDM_ANSWER_YES);
    Give(IDM_EDIT_COPY_NAME);
    Give(IDM_EDIT_COPY_PATH);
    for (const UINT command : {IDM_SENDTO_COPY_TO, IDM_SENDTO_MOVE_TO, IDM_SENDTO_SHORTCUT_TO}) {
        Select({L"beta.doc"});
        Give(command);
        Keys({VK_DOWN, VK_DOWN, VK_RIGHT, VK_DOWN, VK_UP});
        Answer(IDCANCEL);
    }
    CloseAll("the jobs");
}

void WalkThrough::Rename() {
    Give(IDM_FILE_NEW_FOLDER);
    Type(L"Fresh");
    Key(VK_RETURN);
    Give(IDM_FILE_NEW_FOLDER);
    Key(VK_ESCAPE);
    Select({L"beta.doc"});
    for (const wchar_t* name : {L"zeta.doc", L"delta", L"beta.doc"}) {
        Give(IDM_FILE_RENAME);
        Type(name);
        Key(VK_RETURN);
        if (program.HasMessageBox())
            Key(VK_RETURN);
        Key(VK_ESCAPE);
    }
    CloseAll("the names");
}

void WalkThrough::OpenDialogs() {
    for (const wchar_t* name : {L"alpha.txt", L"Inner", L"epsilon.bmp"}) {
        Select({name});
        Give(IDM_MENU_PROPERTIES);
        Keys({VK_TAB, VK_TAB, VK_SPACE, VK_SPACE});
        Answer(IDCANCEL);
    }
    Select({L"alpha.txt", L"beta.doc"});
    Give(IDM_MENU_PROPERTIES);
    Answer(IDM_PROPERTIES_OK);
    Select({L"alpha.txt"});
    for (const UINT command : {IDM_OPEN_PARAMETERS, IDM_OPEN_CHOOSE_PROGRAM, IDM_GOTO_USER_PATH}) {
        Give(command);
        Keys({VK_DOWN, VK_UP, VK_TAB, VK_TAB});
        Answer(IDCANCEL);
    }
    CloseAll("the dialogs");
}

void WalkThrough::ChangeOptions() {
    Give(IDM_VIEW_OPTIONS);
    for (const int page : {IDM_OPTIONS_SYSTEM_PATH, IDM_OPTIONS_FONT, IDM_OPTIONS_CONTROLS,
                           IDM_OPTIONS_COMPRESSION, IDM_OPTIONS_ICONS, IDM_OPTIONS_ABOUT}) {
        Answer(page);
        Keys({VK_TAB, VK_TAB, VK_SHIFT});
        Answer(IDM_OPTIONS_OK);
    }
    for (const int box : {IDC_HIDE_HIDDEN, IDC_NO_EXTENSION, IDC_REMEMBER_FOLDER})
        Step("mark", [&] { program.WaitForDialog(L"Options").Item(box).Click(); });
    Answer(IDM_OPTIONS_OK);
    CloseAll("the options");
    for (int round = 0; round < 2; ++round) {
        for (const UINT part : {IDM_VIEW_ADDRESS_BAR, IDM_VIEW_STATUS_BAR, IDM_VIEW_FOLDER_TREE})
            Give(part);
        Step("again", [&] { program.Restart(L"\\Walk"); });
    }
    Give(IDM_VIEW_OPTIONS);
    for (const int box : {IDC_HIDE_HIDDEN, IDC_NO_EXTENSION})
        Step("mark", [&] { program.WaitForDialog(L"Options").Item(box).Click(); });
    Answer(IDM_OPTIONS_OK);
}

void WalkThrough::GoPlaces() {
    for (const wchar_t* place :
         {L"\\Walk\\Inner", L"\\Walk\\Inner\\Deep", L"", L"\\Windows\\Favorites", L"\\No such"})
        Go(place);
    if (program.HasMessageBox())
        Key(VK_RETURN);
    for (const UINT command :
         {IDM_TOOLBAR_BACK, IDM_TOOLBAR_BACK, IDM_TOOLBAR_FORWARD, IDM_TOOLBAR_UP_FOLDER,
          IDM_TOOLBAR_UP_FOLDER, IDM_GOTO_DEVICE, IDM_GOTO_MY_DOCUMENTS, IDM_GOTO_START_MENU,
          IDM_TOOLBAR_LIST_STYLE, IDM_TOOLBAR_LIST_STYLE, IDM_MENU_REFRESH})
        Give(command);
    Go(L"\\Walk");
    Give(IDM_FAVORITES_ADD);
    Give(IDM_TOOLBAR_GO_TO);
    Keys({VK_DOWN, VK_RIGHT, VK_DOWN, VK_ESCAPE, VK_ESCAPE});
    Keys({VK_HOME, VK_DOWN, VK_RETURN, VK_DOWN, VK_DOWN, VK_BACK});
    Go(L"\\Walk");
    CloseAll("the places");
}

void WalkThrough::SearchFiles() {
    for (const wchar_t* name : {L"*.txt", L"three*", L"nowhere"}) {
        Step("search", [&] { program.Search(name, L"\\Walk"); });
        Keys({VK_DOWN, VK_DOWN, VK_UP});
    }
    Give(IDM_TOOLBAR_BACK);
    Go(L"\\Walk");
    CloseAll("the search");
}

void WalkThrough::Drag() {
    Give(IDM_VIEW_DETAILED);
    for (const wchar_t* name : {L"delta", L"epsilon.bmp"}) {
        Step("drag", [&] { ::Drag(program.List().PointOf(name), program.List().PointOf(L"Other")); });
        Keys({VK_DOWN, VK_ESCAPE});
    }
    CloseAll("dragging");
}

TEST_F(WalkThrough, GoesTheWholeWay) {
    Step("start", [&] { program.Start(L"\\Walk"); });
    LookAtTheList();
    Sort();
    OpenTheMenus();
    OpenContextMenus();
    UseTheTree();
    DoJobs();
    Rename();
    OpenDialogs();
    ChangeOptions();
    GoPlaces();
    SearchFiles();
    Drag();
    LookAtTheList();
    OpenTheMenus();
    Sort();
    Step("end", [&] { program.Restart(L"\\Walk"); });
    EXPECT_GE(Steps(), atLeast);
}

} // namespace
