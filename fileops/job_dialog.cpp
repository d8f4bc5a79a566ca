#include "fileops/job_dialog.h"

#include "app/app_state.h"

INT_PTR RunDialog(const int (&templates)[3], HWND owner, DLGPROC procedure, void* parameter) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int id = templates[width == 240 ? 0 : width == 320 ? 1 : 2];
    HRSRC resource = FindResourceW(appState.instance, MAKEINTRESOURCEW(id), RT_DIALOG);
    const auto* dialog = static_cast<const DLGTEMPLATE*>(LoadResource(appState.instance, resource));
    return DialogBoxIndirectParamW(appState.instance, dialog, owner, procedure,
                                   reinterpret_cast<LPARAM>(parameter));
}

void AddSoftKeys(HWND dialog, int menuBar) {
    SHMENUBARINFO info{};
    info.cbSize = sizeof(info);
    info.hwndParent = dialog;
    info.nToolBarId = static_cast<UINT>(menuBar);
    info.hInstRes = appState.instance;
    ce::SHCreateMenuBar(&info);
}

void FillScreen(HWND dialog) {
    SHINITDLGINFO info{SHIDIM_FLAGS, dialog, SHIDIF_DONEBUTTON | SHIDIF_SIZEDLG | SHIDIF_SIPDOWN};
    ce::SHInitDialog(&info);
}
