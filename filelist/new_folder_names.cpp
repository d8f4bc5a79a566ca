#include "filelist/new_folder_names.h"

#include "common/text.h"

Path NewFolderName(int number) {
    wchar_t text[32];
    if (number == 1)
        CopyTextTo(text, L"New Folder");
    else
        FormatText(text, L"New Folder(%d)", number);
    Path name;
    [[maybe_unused]] const bool fits = name.Assign(text);
    return name;
}
