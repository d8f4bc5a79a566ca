// Names against patterns, compared with a plain reading of the same rules; and names made of any others.

#include "common/name_rules.h"
#include "common/text.h"
#include "filelist/new_folder_names.h"
#include "filelist/rename_rules.h"
#include "filelist/shortcut_names.h"
#include "fileops/archive_types.h"
#include "search/name_match.h"
#include "tests/fuzz/program/input.h"

namespace {

/// Character by character: what stands between stars is looked for as it is; what stands behind the last
/// star, with its question marks as any one character each, piece by piece.
bool PlainlyMatches(std::wstring_view name, std::wstring_view pattern) {
    std::size_t at = 0;
    for (std::size_t p = 0; p < pattern.size();) {
        if (pattern[p] == L'*') {
            ++p;
            continue;
        }
        if (at >= name.size())
            return false;
        if (pattern[p] == L'?') {
            ++p;
            ++at;
            continue;
        }
        const bool starFollows = pattern.find(L'*', p) != std::wstring_view::npos;
        std::size_t end = p;
        while (end < pattern.size() && pattern[end] != (starFollows ? L'*' : L'?'))
            ++end;
        const std::size_t length = end - p;
        while (at + length <= name.size() && name.substr(at, length) != pattern.substr(p, length))
            ++at;
        if (at + length > name.size())
            return false;
        at += length;
        p = end;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::wstring few = input.TextOf(L"AB?.", 40);
    const std::wstring asked = input.TextOf(L"AB?*", 20);
    Expect(nameMatches(few, asked) == PlainlyMatches(few, asked));
    std::wstring name = input.Text(300);
    std::wstring pattern = input.Text(40);
    const std::wstring folder = input.Text(270);
    FoldCase(name);
    FoldCase(pattern);
    Expect(nameMatches(name, pattern) == PlainlyMatches(name, pattern));
    Expect(nameMatches(name, L"*"));

    const std::wstring_view stored = StoredName(name);
    Expect(name.starts_with(stored));
    Path renamed;
    if (NameFromLabel(pattern, name, input.Bool(), renamed) && !renamed.IsEmpty())
        Expect(StoredName(renamed.View()) == renamed.View());
    JudgeLabel(pattern.c_str(), ItemKind::File);

    const ShortcutNaming naming{input.Bool(), input.Bool()};
    Path shortcut;
    const std::wstring_view base = ShortcutBase(name, naming);
    Expect(base.size() <= name.size());
    if (AssignShortcutPath(shortcut, folder, base, naming, input.Any<int>()))
        Expect(shortcut.View().ends_with(L".lnk"));
    else
        Expect(shortcut.IsEmpty());
    if (shortcut.Assign(folder))
        Expect(std::wstring_view(QuotedTarget(shortcut).data()) == L"\"" + folder + L"\"");
    Expect(NewFolderName(input.Any<int>()).View().starts_with(L"New Folder"));
    ArchiveTypeOf(name);
    return 0;
}
