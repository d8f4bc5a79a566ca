#include "companions/archiver/command_line.h"

namespace archiver {

namespace {

void SkipBlanks(std::wstring_view& text) {
    while (!text.empty() && (text.front() == L' ' || text.front() == L'\t'))
        text.remove_prefix(1);
}

/// Takes the quoted words off `text`; nothing when there is anything but non-empty quoted words.
std::optional<std::vector<std::wstring>> TakeQuoted(std::wstring_view text) {
    std::vector<std::wstring> words;
    for (SkipBlanks(text); !text.empty(); SkipBlanks(text)) {
        const std::size_t end = text.find(L'"', 1);
        if (text.front() != L'"' || end == std::wstring_view::npos || end == 1)
            return std::nullopt;
        words.emplace_back(text.substr(1, end - 1));
        text.remove_prefix(end + 1);
    }
    return words;
}

} // namespace

std::optional<CommandLine> ParseCommandLine(std::wstring_view text) {
    SkipBlanks(text);
    if (text.size() < 2 || (text[1] != L' ' && text[1] != L'\t') || (text[0] != L'a' && text[0] != L'e'))
        return std::nullopt;
    const Action action = text[0] == L'a' ? Action::Make : Action::Extract;
    std::optional<std::vector<std::wstring>> words = TakeQuoted(text.substr(1));
    const bool complete = words && (action == Action::Make ? words->size() > 2 : words->size() == 2);
    if (!complete)
        return std::nullopt;
    CommandLine command{action, std::move((*words)[0]), std::move((*words)[1]), {}};
    command.files.assign(std::make_move_iterator(words->begin() + 2), std::make_move_iterator(words->end()));
    return command;
}

} // namespace archiver
