#include "filelist/shortcut_names.h"

#include "common/text.h"

std::wstring_view ShortcutBase(std::wstring_view targetName, ShortcutNaming naming) {
    if (!naming.keepExtension)
        targetName.remove_suffix(ExtensionOf(targetName).size());
    return targetName;
}

bool AssignShortcutPath(Path& path, std::wstring_view folder, std::wstring_view base, ShortcutNaming naming,
                        int number) {
    wchar_t ending[24] = L".lnk";
    if (number > 1)
        FormatText(ending, L" (%d).lnk", number);
    Path whole;
    if (!whole.AssignChild(folder, naming.mention ? L"Shortcut to " : L"") || !whole.Append(base) ||
        !whole.Append(ending))
        return false;
    path = whole;
    return true;
}

ShortcutText QuotedTarget(const Path& target) {
    ShortcutText text{};
    FormatText(text, L"\"%s\"", target.Text());
    return text;
}
