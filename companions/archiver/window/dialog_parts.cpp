#include "companions/archiver/window/dialog_parts.h"

namespace archiver {

HINSTANCE Library() {
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&Library), &library);
    return library;
}

const DLGTEMPLATE* FindTemplate(const DialogTemplates& templates) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int id = templates[width == 240 ? 0 : width == 320 ? 1 : 2];
    const HRSRC resource = FindResourceW(Library(), MAKEINTRESOURCEW(id), RT_DIALOG);
    return resource ? static_cast<const DLGTEMPLATE*>(LoadResource(Library(), resource)) : nullptr;
}

void FitDialog(HWND dialog, int menuBar) {
    SHMENUBARINFO bar{};
    bar.cbSize = sizeof(bar);
    bar.hwndParent = dialog;
    bar.nToolBarId = static_cast<UINT>(menuBar);
    bar.hInstRes = Library();
    ce::SHCreateMenuBar(&bar);
    SHINITDLGINFO info{SHIDIM_FLAGS, dialog, SHIDIF_DONEBUTTON | SHIDIF_SIZEDLG};
    ce::SHInitDialog(&info);
}

} // namespace archiver
