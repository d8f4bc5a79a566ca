// Any bytes as a shortcut's file, of either kind; and a shortcut written is the one read.

#include <algorithm>

#include "platform/desktop/shell_link.h"
#include "platform/desktop/shortcut_text.h"
#include "tests/fuzz/program/input.h"

namespace {

/// No line end or zero: those end a shortcut's text.
bool IsOneLine(std::span<const wchar_t> text) {
    return std::ranges::none_of(text, [](wchar_t c) { return c == L'\r' || c == L'\n' || c == L'\0'; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<wchar_t> target = ReadShortcutText(bytes);
    Expect(target.size() <= size && IsOneLine(target));
    if (const auto link = ReadShellLink(bytes))
        Expect(!link->path.empty() && link->path.size() <= 2 * size && link->arguments.size() <= size);

    // In quotes, as the program writes it, no text is taken for an icon's.
    Input input(data, size);
    std::wstring quoted = L"\"" + input.Text(260) + L"\"";
    std::erase_if(quoted, [](wchar_t c) { return c == L'\r' || c == L'\n' || (c >= 0xD800 && c < 0xE000); });
    const std::vector<char> written = WriteShortcutText(quoted);
    const std::vector<wchar_t> read = ReadShortcutText(written);
    Expect(std::ranges::equal(read, quoted));
    return 0;
}
