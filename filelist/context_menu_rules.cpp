#include "filelist/context_menu_rules.h"

#include "common/path.h"
#include "resources/resource.h"

int ContextPopup(const ContextSelection& selection) {
    if (selection.count >= 2)
        return POPUP_SEVERAL;
    if (selection.count == 0)
        return selection.any ? noContextPopup : POPUP_NOTHING;
    if (!selection.firstIsFile)
        return POPUP_FOLDER;
    // Letter by letter on purpose: an archive named ".ZIP" has no menu, as no other file has.
    return ExtensionOf(selection.firstName) == L".zip" ? POPUP_ARCHIVE_FILE : noContextPopup;
}
