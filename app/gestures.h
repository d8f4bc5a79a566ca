#pragma once
// What a person has begun on a pane and not ended: a drag, an open menu, a name in edit, the stylus down.
//
// All of these are about entries that are seen. So the entries do not change under them: a change that a
// person asks for, a second start's folder among them, ends the gesture first, with nothing done; one that
// nobody asked for waits until it has ended.

/// Whether something of the kind is under way.
bool IsGestureRunning();

/// Ends it: the drag is dropped nowhere, the menu closes with nothing chosen, the name stays as it was, and
/// the stylus that is down does nothing any more.
void EndGesture();
