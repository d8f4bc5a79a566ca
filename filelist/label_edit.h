#pragma once
// The editor that the view opens over an entry's name.

#include <array>

#include "common/path.h"
#include "platform/ce_api.h"

class LabelEdit {
  public:
    /// The view has opened its editor over a name.
    void Begin(HWND view);

    /// The editor closes; `reported` is the name the view reports. Null when the edit was cancelled, or had
    /// ended before: what answers its end may take the focus away, and the view ends the edit again.
    /// Some views report an emptied or unchanged name as null too: then it is what stands in the editor.
    const wchar_t* Finish(const wchar_t* reported);

    /// Closes an open editor; the name stays as it was.
    void Cancel();

    /// Closes an open editor as a tap elsewhere does: what was typed becomes the name.
    void Leave();

  private:
    static LRESULT CALLBACK EditorProcedure(HWND editor, UINT message, WPARAM wParam, LPARAM lParam);

    HWND editor_ = nullptr; // null while no name is edited
    WNDPROC editorProcedure_ = nullptr;
    bool cancelled_ = false;
    std::array<wchar_t, 2 * pathCapacity>
        typed_{}; // room for more than a name may have: cut, it might be one
};
