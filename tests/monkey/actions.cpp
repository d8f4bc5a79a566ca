#include "tests/monkey/actions.h"

#include <cstdint>
#include <vector>

#include "resources/resource.h"
#include "tests/monkey/world.h"
#include "tests/support/input.h"
#include "tests/support/live_window.h"
#include "tests/support/text.h"

namespace {

constexpr WORD walkingKeys[] = {VK_UP,   VK_DOWN, VK_LEFT, VK_RIGHT, VK_UP,  VK_DOWN,
                                VK_HOME, VK_END,  VK_NEXT, VK_PRIOR, VK_TAB, VK_ESCAPE};
constexpr WORD allKeys[] = {VK_UP,     VK_DOWN,   VK_LEFT, VK_RIGHT, VK_DOWN,  VK_DOWN,  VK_RETURN,
                            VK_RETURN, VK_ESCAPE, VK_TAB,  VK_F1,    VK_F10,   VK_F10,   VK_F2,
                            VK_DELETE, VK_HOME,   VK_END,  VK_NEXT,  VK_PRIOR, VK_SPACE, VK_BACK,
                            VK_APPS,   'A',       'C',     'V',      'X',      'N',      'Q',
                            '1',       '2',       '9',     '0',      VK_F5,    VK_ADD,   VK_MULTIPLY};
constexpr UINT lookingCommands[] = {IDM_SOFTKEY_CHANGE_VIEW,
                                    IDM_VIEW_DETAILED_LINE,
                                    IDM_VIEW_DRAG_DROP,
                                    IDM_EDIT_COPY_NAME,
                                    IDM_EDIT_COPY_PATH,
                                    IDM_FILE_SEARCH,
                                    IDM_EDIT_RELEASE_SELECTION,
                                    IDM_EDIT_REVERSE_SELECTION,
                                    IDM_EDIT_SELECT_ALL,
                                    IDM_KEY_SHIFT,
                                    IDM_KEY_CTRL,

                                    IDM_TOOLBAR_BACK,
                                    IDM_TOOLBAR_FORWARD,
                                    IDM_FOCUS_NEXT,
                                    IDM_FOCUS_PREV,
                                    IDM_GOTO_DEVICE,
                                    IDM_GOTO_MY_DOCUMENTS,
                                    IDM_GOTO_START_MENU,
                                    IDM_VIEW_OPTIONS,
                                    IDM_VIEW_ADDRESS_BAR,
                                    IDM_VIEW_FOLDER_TREE,
                                    IDM_VIEW_DETAILED,
                                    IDM_VIEW_SIDE,
                                    IDM_ARRANGE_TYPE,
                                    IDM_ARRANGE_NAME,
                                    IDM_ARRANGE_REVERSE,
                                    IDM_ARRANGE_SIZE,
                                    IDM_ARRANGE_DATE,
                                    IDM_VIEW_STATUS_BAR,
                                    IDM_TOOLBAR_LIST_STYLE,
                                    IDM_MENU_REFRESH,
                                    IDM_TOOLBAR_UP_FOLDER,
                                    IDM_VIEW_LIST,
                                    IDM_VIEW_LARGE,
                                    IDM_VIEW_SMALL,
                                    IDM_TOOLBAR_COPY,
                                    IDM_TOOLBAR_CUT,
                                    IDM_TOOLS_MEMORY_STATUS,
                                    IDM_FILE_DELETE};
constexpr UINT otherCommands[] = {
    IDM_FILE_DELETE,      IDM_FILE_DELETE,        IDM_TOOLBAR_PASTE,  IDM_TOOLBAR_PASTE,
    IDM_FILE_RENAME,      IDM_FILE_NEW_FOLDER,    IDM_FILE_SHORTCUT,  IDM_TOOLBAR_PASTE_SHORTCUT,
    IDM_SENDTO_ZIP,       IDM_SENDTO_COPY_TO,     IDM_SENDTO_MOVE_TO, IDM_SENDTO_SHORTCUT_TO,
    IDM_FILE_EXTRACT_TO,  IDM_FILE_EXTRACT_HERE,  IDM_FILE_OPEN,      IDM_OPEN_PARAMETERS,
    IDM_FAVORITES_ADD,    IDM_FAVORITES_ORGANIZE, IDM_GOTO_USER_PATH, IDM_OPEN_CHOOSE_PROGRAM,
    IDM_MENU_PROPERTIES,  IDM_SENDTO_EMAIL,       IDM_SENDTO_IR,      IDM_MENU_EXIT,
    IDM_NETWORK_CONNECT,  IDM_SENDTO_FIRST,       IDM_USERPATH_FIRST, IDM_FAVORITE_FIRST,
    IDM_HELP_USER_MANUAL, IDM_TOOLBAR_GO_TO,      IDM_TOOLBAR_HIDE,   IDM_NETWORK_DISCONNECT};
/// Those whose parameters are numbers: what is a pointer in one process is none in another, for any program.
constexpr UINT messages[] = {WM_TIMER,       WM_SIZE,           WM_SETTINGCHANGE, WM_DEVICECHANGE,
                             WM_HOTKEY,      WM_CANCELMODE,     WM_ACTIVATE,      WM_SETFOCUS,
                             WM_KILLFOCUS,   WM_COMMAND,        WM_FONTCHANGE,    WM_SYSCOLORCHANGE,
                             WM_CONTEXTMENU, WM_LBUTTONDOWN,    WM_LBUTTONUP,     WM_MOUSEMOVE,
                             WM_CHAR,        WM_CAPTURECHANGED, WM_INITMENUPOPUP, WM_ENABLE};
constexpr const wchar_t* words[] = {L"a",  L"New name", L"b.doc",       L"*.txt",
                                    L"..", L"x y",      L"\\Play\\Odd", L"1"};

POINT AnyPoint(Chance& chance) {
    return {static_cast<LONG>(chance.UpTo(static_cast<unsigned>(GetSystemMetrics(SM_CXSCREEN)) - 1)),
            static_cast<LONG>(chance.UpTo(static_cast<unsigned>(GetSystemMetrics(SM_CYSCREEN)) - 1))};
}

std::string PointText(POINT point) {
    return std::to_string(point.x) + "," + std::to_string(point.y);
}

std::string PressAny(Chance& chance, std::span<const WORD> keys) {
    const WORD key = chance.OneOf(keys);
    constexpr unsigned modifiers[] = {NoModifier, NoModifier, NoModifier, NoModifier, Shift, Ctrl};
    const unsigned modifier = chance.OneOf(modifiers);
    PressKey(key, modifier);
    return "key " + std::to_string(key) + " with " + std::to_string(modifier);
}

/// While a dialog is open nobody gives the main window commands.
std::string Give(Program& program, UINT command) {
    if (!IsWindowEnabled(program.Window()))
        return "no command";
    program.PostCommand(command);
    return "command " + std::to_string(command);
}

std::string HandOver(Program& program, Chance& chance) {
    std::wstring text = chance.OneOf(places);
    if (chance.OneIn(8))
        text.append(chance.UpTo(400), L'x');
    std::vector<wchar_t> block(text.begin(), text.end());
    if (!chance.OneIn(10))
        block.push_back(L'\0');
    const unsigned cut = chance.OneIn(10) ? chance.UpTo(3) : 0;
    const auto size = static_cast<unsigned>(block.size() * sizeof(wchar_t));
    COPYDATASTRUCT data{chance.OneIn(10) ? chance.UpTo(600) : 563u, size - (cut < size ? cut : 0),
                        block.data()};
    SendMessageTimeoutW(program.Window(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data), SMTO_NORMAL, 2000,
                        nullptr);
    return "hand over " + Narrow(text.substr(0, 40)) + " in " + std::to_string(data.cbData) + " bytes";
}

/// To any window of the program's own kind: the main window and its dialogs.
std::string SendAny(Program& program, Chance& chance) {
    std::vector<HWND> windows = DialogsOf(program.ProcessId());
    windows.push_back(program.Window());
    const HWND window = chance.OneOf(windows);
    const UINT message = chance.OneIn(3) ? WM_USER + chance.UpTo(16) : chance.OneOf(messages);
    const WPARAM wParam = chance.UpTo(300);
    if (message == WM_COMMAND && !IsWindowEnabled(window))
        return "no command";
    const LPARAM lParam = message == WM_COMMAND || message == WM_SETTINGCHANGE ||
                                  message == WM_CAPTURECHANGED || message == WM_ACTIVATE ||
                                  message == WM_INITMENUPOPUP || message == WM_DEVICECHANGE
                              ? 0
                              : static_cast<LPARAM>(chance.UpTo(400));
    PostMessageW(window, message, wParam, lParam);
    return "message " + std::to_string(message) + " (" + std::to_string(wParam) + ", " +
           std::to_string(lParam) + ") to " + Narrow(ClassOf(window));
}

std::string Point(Chance& chance) {
    const POINT point = AnyPoint(chance);
    switch (chance.UpTo(5)) {
    case 0:
        TapAndHold(point, 700);
        return "hold " + PointText(point);
    case 1: {
        const POINT to = AnyPoint(chance);
        Drag(point, to);
        return "drag " + PointText(point) + " to " + PointText(to);
    }
    case 2:
        DoubleTap(point);
        return "double tap " + PointText(point);
    case 3:
        RightClick(point);
        return "right click " + PointText(point);
    default:
        Tap(point);
        return "tap " + PointText(point);
    }
}

} // namespace

std::string DoAnything(Program& program, Chance& chance) {
    switch (chance.UpTo(11)) {
    case 0:
    case 1:
        return Point(chance);
    case 2:
        return HandOver(program, chance);
    case 3:
        return Give(program, chance.OneOf(lookingCommands));
    case 4:
        return Give(program, chance.OneOf(otherCommands));
    case 5:
        return SendAny(program, chance);
    case 6: {
        const std::wstring word = chance.OneOf(words);
        TypeText(word);
        return "type " + Narrow(word);
    }
    default:
        return PressAny(chance, allKeys);
    }
}

std::string Look(Program& program, Chance& chance) {
    switch (chance.UpTo(5)) {
    case 0:
        return HandOver(program, chance);
    case 1:
    case 2:
        return Give(program, chance.OneOf(lookingCommands));
    case 3: {
        const POINT point = AnyPoint(chance);
        TapAndHold(point, 700);
        return "hold " + PointText(point);
    }
    default:
        return PressAny(chance, walkingKeys);
    }
}
