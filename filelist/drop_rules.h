#pragma once
// What a drop does, by the keys that are down and the choice in the drop menu.

/// What a drop looks at.
struct DropKeys {
    bool ctrl = false; // down, or latched as a sticky key
    bool alt = false;
    bool shift = false; // down, or latched as a sticky key
    bool alwaysMenu = false;
};

enum class DropAction { None, Copy, Move, Shortcut };

/// The keys as they are now.
DropKeys CurrentDropKeys();

/// Whether the drop menu is shown.
bool DropAsks(const DropKeys& keys);

/// What to do; `choice` is the command taken from the drop menu, 0 when that was not shown. A held key
/// overrides the menu: Ctrl makes any choice a copy, and Alt makes a move a shortcut.
DropAction DropActionOf(int choice, const DropKeys& keys);

/// The same for a menu that has been shown: dismissing it is no drop.
DropAction DropActionOfMenu(int choice, const DropKeys& keys);
