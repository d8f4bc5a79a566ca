#include "filelist/list_input.h"

#include "app/app_state.h"
#include "common/pointer.h"
#include "resources/resource.h"

namespace {

enum class With { Any, Ctrl, Alt };

struct KeyChoice {
    With with;
    int key;
    int result;
};

constexpr KeyChoice navigationKeys[] = {
    {With::Alt, VK_RIGHT, IDM_TOOLBAR_FORWARD},
    {With::Alt, VK_LEFT, IDM_TOOLBAR_BACK},
    {With::Any, VK_BACK, IDM_TOOLBAR_UP_FOLDER},
    {With::Any, VK_DELETE, IDM_FILE_DELETE},
};

constexpr KeyChoice commandKeys[] = {
    {With::Ctrl, 'Q', IDM_MENU_EXIT},          {With::Ctrl, 'C', IDM_TOOLBAR_COPY},
    {With::Ctrl, 'X', IDM_TOOLBAR_CUT},        {With::Ctrl, 'V', IDM_TOOLBAR_PASTE},
    {With::Ctrl, 'A', IDM_EDIT_SELECT_ALL},    {With::Ctrl, 'F', IDM_FILE_SEARCH},
    {With::Ctrl, 'R', IDM_MENU_REFRESH},       {With::Ctrl, 'O', IDM_SENDTO_COPY_TO},
    {With::Ctrl, 'T', IDM_SENDTO_MOVE_TO},     {With::Ctrl, 'S', IDM_SENDTO_SHORTCUT_TO},
    {With::Ctrl, 'L', IDM_TOOLBAR_LIST_STYLE}, {With::Ctrl, 'P', IDM_MENU_PROPERTIES},
    {With::Ctrl, 'D', IDM_FILE_DELETE},        {With::Ctrl, 'N', IDM_FILE_NEW_FOLDER},
    {With::Ctrl, 'B', IDM_OPEN_PARAMETERS},    {With::Ctrl, 'I', IDM_FAVORITES_ADD},
    {With::Ctrl, 'U', IDM_GOTO_USER_PATH},     {With::Any, VK_F2, IDM_FILE_RENAME},
    {With::Any, VK_F3, IDM_FILE_SEARCH},       {With::Any, VK_F4, IDM_VIEW_OPTIONS},
    {With::Any, VK_F5, IDM_MENU_REFRESH},      {With::Any, VK_F6, keyFocusesAddressBar},
    {With::Ctrl, 'M', keyOpensContextMenu},    {With::Alt, VK_CONTROL, keyOpensContextMenu},
};

template <std::size_t count>
int FirstMatch(const KeyChoice (&choices)[count], int key, KeyState keys) {
    for (const KeyChoice& choice : choices) {
        const bool modifier = choice.with == With::Any || (choice.with == With::Ctrl ? keys.ctrl : keys.alt);
        if (modifier && choice.key == key)
            return choice.result;
    }
    return keyTranslatesToNothing;
}

/// 1 to 9 are the first nine built entries, 0 is the tenth.
int DigitCommand(int key, KeyState keys) {
    if (key < '0' || key > '9' || !(keys.ctrl || keys.alt))
        return keyTranslatesToNothing;
    const int entry = key == '0' ? 9 : key - '1';
    return (keys.ctrl ? IDM_SENDTO_FIRST : IDM_USERPATH_FIRST) + entry;
}

WNDPROC viewProcedure = nullptr;

void OnTimer(FileList& list, WPARAM timer) {
    if (timer == holdTimer) {
        list.tapAndHold.HoldElapsed(list);
    } else if (timer == restoreTimer) {
        // Both steps at once: with the first the control has dealt with the stylus, the second ends it.
        list.tapAndHold.RestoreStep(list.Window());
        list.tapAndHold.RestoreStep(list.Window());
    }
}

LRESULT CALLBACK ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    FileList& list = appState.fileList;
    switch (message) {
    case WM_KEYDOWN:
        if (list.OnHistoryKey(wParam))
            return 0;
        break;
    case UM_EDITLABEL:
        return list.EditAgain(), 0;
    case WM_LBUTTONDOWN:
        list.tapAndHold.StylusDown(list, PointOf(lParam));
        break;
    case WM_LBUTTONDBLCLK:
        if (list.tapAndHold.HasOpened())
            return 0; // its first tap has opened: what is under the stylus now may be another entry
        break;
    case WM_LBUTTONUP:
        list.tapAndHold.Cancel(window);
        break;
    case WM_TIMER:
        OnTimer(list, wParam);
        break;
    case WM_HOTKEY:
        if (HIWORD(lParam) == VK_ESCAPE)
            ce::SHSendBackToFocusWindow(message, wParam, lParam);
        break;
    default:
        break;
    }
    return CallWindowProcW(viewProcedure, window, message, wParam, lParam);
}

} // namespace

int TranslateListKey(int key, KeyState keys) {
    if (const int command = FirstMatch(navigationKeys, key, keys))
        return command;
    if (const int command = DigitCommand(key, keys))
        return command;
    return FirstMatch(commandKeys, key, keys);
}

void SubclassList(HWND view) {
    viewProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(view, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ListProcedure)));
}
