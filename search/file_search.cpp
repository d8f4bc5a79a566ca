#include "search/file_search.h"

#include <memory>

#include "app/app_state.h"
#include "common/device_info.h"
#include "search/search_dialog.h"

void RunFileSearch() {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_DATE_CLASSES};
    InitCommonControlsEx(&controls);
    const bool panelShown = (GetSipFlags() & SIPF_ON) != 0;
    // Too large for the phone's stack.
    const INT_PTR searched = std::make_unique<FileSearch>()->Run(appState.mainWindow);
    if (!panelShown)
        ce::SipShowIM(SIPF_OFF);
    if (searched > 0)
        appState.fileList.GoToFolder(searchFolder, treeRescan);
}
