// Paths taken apart, put together and brought into one spelling.

#include <algorithm>

#include "common/path.h"
#include "foldertree/tree_rules.h"
#include "platform/path_spelling.h"
#include "tests/fuzz/program/input.h"

namespace {

/// The names that a path leads through, by a list instead of a buffer.
std::wstring PlainlySpelled(std::wstring_view path) {
    std::vector<std::wstring> names(1);
    for (const wchar_t character : path) {
        if (!IsSlash(character)) {
            names.back() += character;
            continue;
        }
        names.emplace_back();
    }
    std::vector<std::wstring> kept;
    for (const std::wstring& name : names) {
        if (name == L"..") {
            if (!kept.empty())
                kept.pop_back();
        } else if (!name.empty() && name != L".") {
            kept.push_back(name);
        }
    }
    std::wstring spelled;
    for (const std::wstring& name : kept)
        spelled += L"\\" + name;
    return spelled;
}

void Spell(const std::wstring& path, std::size_t capacity) {
    std::vector<wchar_t> room(capacity);
    const auto length = SpellPath(path, L'E', room);
    if (!length)
        return;
    Expect(*length <= capacity);
    const std::wstring spelled(room.data(), *length);
    const bool hasDrive = path.size() >= 2 && path[1] == L':';
    Expect(spelled == PlainlySpelled(std::wstring_view(path).substr(hasDrive ? 2 : 0)));
    // Once more changes nothing, unless it looks like the name of a drive or of the host by now.
    if (!spelled.starts_with(L"\\:") && !spelled.starts_with(L"\\??")) {
        std::vector<wchar_t> again(capacity);
        const auto same = SpellPath(spelled, L'E', again);
        Expect(same && std::wstring(again.data(), *same) == spelled);
    }
}

void Edit(Input& input, std::wstring_view first, std::wstring_view second) {
    Path path;
    std::wstring expected;
    if (path.Assign(first))
        expected = first;
    Expect(path.View() == expected);
    if (path.Append(second))
        expected += second;
    Expect(path.View() == expected && expected.size() < pathCapacity);
    if (path.AssignChild(first, second))
        Expect(LeafOf(path.View()) == LeafOf(second) || second.empty());
    path.Truncate(input.UpTo(300));
    if (path.AssignPattern(first))
        Expect(path.View().ends_with(L"\\*.*"));
    Expect(path.Text()[path.Length()] == L'\0');
}

void TakeApart(std::wstring_view path) {
    const std::wstring_view leaf = LeafOf(path);
    const std::wstring_view parent = ParentOf(path);
    Expect(leaf.size() == path.size() || parent.size() + 1 + leaf.size() == path.size());
    Expect(path.ends_with(ExtensionOf(path)));
    Expect(EqualNoCase(path, path));

    UpwardPath upward;
    std::wstring forward;
    std::vector<std::wstring_view> parts;
    for (PathComponents components(path); components.HasNext();)
        parts.push_back(components.Next());
    bool fits = true;
    for (auto part = parts.rbegin(); part != parts.rend() && fits; ++part) {
        fits = upward.Prepend(*part);
        if (fits)
            forward = L"\\" + std::wstring(*part) + forward;
        Expect(upward.View() == forward);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::wstring first = input.Text(300);
    const std::wstring second = input.Text(300);
    Edit(input, first, second);
    TakeApart(first);
    Spell(first, input.UpTo(270));
    Spell(L"E:" + second, 300);
    return 0;
}
