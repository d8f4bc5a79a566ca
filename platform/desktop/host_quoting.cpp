#include "platform/desktop/host_quoting.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

void UndoHostQuoting(wchar_t* commandLine) {
    const std::wstring_view text = commandLine;
    const bool wrapped = text.starts_with(L'"');
    if (!wrapped && !text.starts_with(L"\\\""))
        return;

    std::vector<wchar_t> typed;
    std::size_t backslashes = 0;
    bool closed = false;
    for (const wchar_t c : text.substr(wrapped ? 1 : 0)) {
        if (closed || (!wrapped && c == L' '))
            return;
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        // Backslashes count double before a quote, and an odd one escapes it.
        const bool quote = c == L'"';
        typed.insert(typed.end(), quote ? backslashes / 2 : backslashes, L'\\');
        closed = quote && backslashes % 2 == 0;
        backslashes = 0;
        if (!closed)
            typed.push_back(c);
    }
    if (closed != wrapped)
        return;
    typed.insert(typed.end(), backslashes, L'\\');
    if (typed.empty())
        return; // an empty path was given, which is not the same as none
    *std::copy(typed.begin(), typed.end(), commandLine) = L'\0';
}
