#include "launch/open_commands.h"

#include <algorithm>
#include <initializer_list>

namespace {

constexpr std::wstring_view programEnding = L".exe";
constexpr std::wstring_view documentMark = L"%1";
constexpr std::wstring_view wholeDocument = L"\"%1\"";

OwnedText Join(std::initializer_list<std::wstring_view> parts) {
    std::size_t length = 0;
    for (const std::wstring_view part : parts)
        length += part.size();
    OwnedText text(new wchar_t[length + 1]);
    wchar_t* end = text.get();
    for (const std::wstring_view part : parts)
        end = std::copy(part.begin(), part.end(), end);
    *end = L'\0';
    return text;
}

/// Where the program's name ends; nothing when it is no program.
std::optional<std::size_t> EndOfProgram(std::wstring_view command) {
    for (std::size_t dot = command.find(L'.'); dot != std::wstring_view::npos;
         dot = command.find(L'.', dot + 1)) {
        if (EqualNoCase(command.substr(dot, programEnding.size()), programEnding))
            return dot + programEnding.size();
    }
    return std::nullopt;
}

} // namespace

std::optional<OpenCommand> ParseOpenCommand(std::wstring_view command) {
    const bool quoted = command.starts_with(L'"');
    if (quoted)
        command.remove_prefix(1);
    const std::optional<std::size_t> end = EndOfProgram(command);
    if (!end)
        return std::nullopt;
    std::wstring_view rest = command.substr(*end);
    if (quoted && rest.starts_with(L'"'))
        rest.remove_prefix(1);
    rest.remove_prefix(std::min(rest.find_first_not_of(L' '), rest.size()));
    return OpenCommand{command.substr(0, *end), rest};
}

bool LocateProgram(std::wstring_view program, std::wstring_view systemFolder, Path& path) {
    if (program.find(L'\\') == std::wstring_view::npos)
        return path.AssignChild(systemFolder, program);
    return path.Assign(program);
}

OwnedText FillInDocument(std::wstring_view parameters, std::wstring_view document) {
    const std::size_t mark = parameters.find(documentMark);
    if (mark == std::wstring_view::npos)
        return CopyText(parameters);
    return Join({parameters.substr(0, mark), document, parameters.substr(mark + documentMark.size())});
}

AssociationTexts ComposeAssociation(const Association& association, std::wstring_view systemFolder) {
    const std::wstring_view leaf = LeafOf(association.program);
    // The shell finds the system folder's own programs by their names.
    const bool ofSystem = EqualNoCase(ParentOf(association.program), systemFolder);
    const std::wstring_view program = ofSystem ? leaf : association.program;
    const std::wstring_view quote = program.find(L' ') == std::wstring_view::npos ? L"" : L"\"";
    const auto orElse = [](std::wstring_view given, std::wstring_view otherwise) {
        return given.empty() ? otherwise : given;
    };
    const std::wstring_view className = orElse(association.className, leaf.substr(0, leaf.rfind(L'.')));

    wchar_t index[16];
    FormatText(index, L"%d", association.iconIndex);
    AssociationTexts texts;
    texts.className = CopyText(className);
    texts.description = CopyText(orElse(association.description, className));
    texts.command = Join({quote, program, quote, L" ", orElse(association.parameters, wholeDocument)});
    texts.iconSource = Join({orElse(association.iconFile, program), L",", index});
    return texts;
}
