#include "fileops/properties_rules.h"

#include <array>

#include "common/path.h"
#include "common/text_format.h"
#include "filelist/shortcut_target.h"

ObjectKind ObjectKindOf(ItemKind kind, std::wstring_view name) {
    if (kind == ItemKind::Folder)
        return ObjectKind::Folder;
    return EqualNoCase(ExtensionOf(name), L".lnk") ? ObjectKind::Shortcut : ObjectKind::File;
}

DWORD AttributesAfterClick(DWORD attributes, DWORD attribute, bool checked) {
    return checked ? attributes | attribute : attributes ^ attribute;
}

void FormatPropertySize(DWORD size, std::span<wchar_t> out) {
    out[0] = L'\0';
    if (size == INVALID_FILE_SIZE)
        return;
    constexpr DWORD megabytesFrom = 1024000;
    std::array<wchar_t, 64> bytes{};
    std::array<wchar_t, 64> scaled{};
    FormatText(bytes, L"%lu", size);
    FormatInteger(bytes);
    FormatSize(size, scaled, L"%s", L"%s");
    FormatText(out, size < megabytesFrom ? L"%s KB (%s bytes)" : L"%s MB (%s bytes)", scaled.data(),
               bytes.data());
}

std::wstring_view FileOfTarget(std::wstring_view target) {
    std::wstring_view file = SplitShortcutTarget(target).program;
    // A quote that is never closed costs the last character.
    const bool unclosed = target.starts_with(L'"') && target.find(L'"', 1) == std::wstring_view::npos;
    if (unclosed && !file.empty())
        file.remove_suffix(1);
    return file;
}
