#include "app/settings.h"

#include "platform/ce_api.h"

Settings::Settings() {
    treeViewWidth = GetSystemMetrics(SM_CXSCREEN);
    treeViewHeight = (GetSystemMetrics(SM_CYSCREEN) - 4 * GetSystemMetrics(SM_CYMENU)) / 2;
    CopyTextTo(sendToPath, L"\\Windows\\SendTo");
    CopyTextTo(windowsPath, L"\\Windows");
    CopyTextTo(networkPath, L"\\Network");
    networkLeaf = LeafOf(networkPath.data()).data();
}
