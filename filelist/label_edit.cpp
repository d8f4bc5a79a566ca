#include "filelist/label_edit.h"

#include <algorithm>
#include <utility>

namespace {

/// The view makes the editor as wide as the name. What would lie beyond the view's edge could not be read.
void KeepInView(HWND editor, WINDOWPOS& place) {
    if (place.flags & SWP_NOSIZE)
        return;
    RECT view{};
    GetClientRect(GetParent(editor), &view);
    if (place.flags & SWP_NOMOVE) {
        RECT now{};
        GetWindowRect(editor, &now);
        POINT corner{now.left, now.top};
        ScreenToClient(GetParent(editor), &corner);
        place.x = corner.x;
        place.y = corner.y;
        place.flags &= ~static_cast<UINT>(SWP_NOMOVE);
    }
    place.cx = std::min<int>(place.cx, view.right);
    place.x = std::clamp<int>(place.x, 0, view.right - place.cx);
}

} // namespace

void LabelEdit::Begin(HWND view) {
    editor_ = reinterpret_cast<HWND>(SendMessageW(view, LVM_GETEDITCONTROL, 0, 0));
    cancelled_ = false;
    if (!editor_)
        return;
    SetWindowLongPtrW(editor_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    editorProcedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(editor_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditorProcedure)));
}

const wchar_t* LabelEdit::Finish(const wchar_t* reported) {
    HWND editor = std::exchange(editor_, nullptr);
    if (!editor || cancelled_)
        return nullptr;
    if (reported)
        return reported;
    GetWindowTextW(editor, typed_.data(), static_cast<int>(typed_.size()));
    return typed_.data();
}

void LabelEdit::Cancel() {
    if (editor_)
        SendMessageW(editor_, WM_KEYDOWN, VK_ESCAPE, 0);
}

void LabelEdit::Leave() {
    if (editor_)
        SetFocus(GetParent(editor_));
}

LRESULT CALLBACK LabelEdit::EditorProcedure(HWND editor, UINT message, WPARAM wParam, LPARAM lParam) {
    LabelEdit& edit = *reinterpret_cast<LabelEdit*>(GetWindowLongPtrW(editor, GWLP_USERDATA));
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE)
        edit.cancelled_ = true;
    if (message == WM_WINDOWPOSCHANGING)
        KeepInView(editor, *reinterpret_cast<WINDOWPOS*>(lParam));
    return CallWindowProcW(edit.editorProcedure_, editor, message, wParam, lParam);
}
