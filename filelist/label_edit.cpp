#include "filelist/label_edit.h"

#include <utility>

#include "app/app_state.h"

void LabelEdit::Begin(HWND view, FileItem* item) {
    item_ = item;
    editor_ = reinterpret_cast<HWND>(SendMessageW(view, LVM_GETEDITCONTROL, 0, 0));
    cancelled_ = false;
    if (editor_)
        editorProcedure_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(editor_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditorProcedure)));
}

const wchar_t* LabelEdit::Finish(const wchar_t* reported) {
    HWND editor = std::exchange(editor_, nullptr);
    item_ = nullptr;
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
    LabelEdit& edit = appState.fileList.labelEdit;
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE)
        edit.cancelled_ = true;
    return CallWindowProcW(edit.editorProcedure_, editor, message, wParam, lParam);
}
