#pragma once
// The window that the archiver's work is done under.

#include <string>

#include "companions/archiver/attendant.h"

namespace archiver {

/// What the window says throughout: its title, and from where to where things go.
struct WorkLook {
    const wchar_t* title;
    std::wstring_view from, to;
};

/// Calls `work` with `context` on a thread of its own, and returns when it has come back; it must not throw.
/// Meanwhile this thread's windows are answered. After half a second, or when there is something to ask, a
/// dialog comes up over the thread's active window and is modal to it: it shows how far the work is, asks its
/// questions and takes the user's "Cancel". Until then nothing that the user does is taken from the queue.
void WorkUnderWindow(const WorkLook& look, void (*work)(void* context, Attendant& attendant), void* context);

/// Tells the user something, over the thread's active window.
void TellUser(const std::wstring& text);

} // namespace archiver
