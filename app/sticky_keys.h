#pragma once
// Ctrl and Shift that stay down, for phones without them: they let the phone's keys extend a selection.

enum class StickyKey { Ctrl, Shift };

/// Presses the key, or releases it when it is down; the other one is released first.
void ToggleStickyKey(StickyKey key);

/// Releases what is down: the keyboard belongs to others when the program ends.
void ReleaseStickyKeys();
