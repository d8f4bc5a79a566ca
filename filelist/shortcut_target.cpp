#include "filelist/shortcut_target.h"

#include <algorithm>

ShortcutTarget SplitShortcutTarget(std::wstring_view text) {
    const bool quoted = text.starts_with(L'"');
    if (quoted)
        text.remove_prefix(1);
    const std::size_t end = std::min(text.find(quoted ? L'"' : L' '), text.size());
    std::wstring_view rest = text.substr(std::min(end + 1, text.size()));
    rest.remove_prefix(std::min(rest.find_first_not_of(L' '), rest.size()));
    return {text.substr(0, end), rest};
}

bool IsServerTarget(std::wstring_view text) {
    if (text.starts_with(L'"'))
        text.remove_prefix(1);
    return text.starts_with(L"\\\\") && text.find(L'\\', 2) == std::wstring_view::npos;
}
