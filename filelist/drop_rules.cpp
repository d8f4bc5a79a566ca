#include "filelist/drop_rules.h"

#include "app/app_state.h"
#include "common/pointer.h"
#include "resources/resource.h"

DropKeys CurrentDropKeys() {
    DropKeys keys;
    keys.ctrl = IsDown(VK_CONTROL) || appState.ctrlLatched;
    keys.alt = IsDown(VK_MENU);
    keys.shift = IsDown(VK_LSHIFT) || IsDown(VK_RSHIFT) || appState.shiftLatched;
    keys.alwaysMenu = appState.settings.dragContextMenu != 0;
    return keys;
}

bool DropAsks(const DropKeys& keys) {
    return keys.shift || keys.alwaysMenu;
}

DropAction DropActionOf(int choice, const DropKeys& keys) {
    if (choice == IDM_DROP_COPY || keys.ctrl)
        return DropAction::Copy;
    if (choice == IDM_DROP_SHORTCUT || keys.alt)
        return DropAction::Shortcut;
    return DropAction::Move;
}

DropAction DropActionOfMenu(int choice, const DropKeys& keys) {
    return choice == 0 || choice == IDM_DROP_CANCEL ? DropAction::None : DropActionOf(choice, keys);
}
