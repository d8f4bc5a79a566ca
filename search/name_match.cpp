#include "search/name_match.h"

#include "platform/ce_api.h"

namespace {

/// The text that the pattern asks for next: up to the next "*" if there is one, else up to the next "?".
std::wstring_view LiteralRun(std::wstring_view pattern) {
    std::size_t end = pattern.find(L'*');
    if (end == std::wstring_view::npos)
        end = pattern.find(L'?');
    return pattern.substr(0, end);
}

} // namespace

void FoldCase(std::span<wchar_t> text) {
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
}

bool nameMatches(std::wstring_view name, std::wstring_view pattern) {
    while (!pattern.empty()) {
        if (pattern.front() == L'*') {
            pattern.remove_prefix(1);
            continue;
        }
        if (name.empty())
            return false;
        std::size_t used = 1;
        std::size_t passed = 1;
        if (pattern.front() != L'?') {
            const std::wstring_view run = LiteralRun(pattern);
            const std::size_t place = name.find(run);
            if (place == std::wstring_view::npos)
                return false;
            used = run.size();
            passed = place + run.size();
        }
        pattern.remove_prefix(used);
        name.remove_prefix(passed);
    }
    return true;
}
