#include "fileops/archive_commands.h"

#include <cwchar>

namespace {

constexpr wchar_t folderFormat[] = L"\"%s\\%s\\*\" ";
constexpr wchar_t fileFormat[] = L"\"%s\\%s\" ";
constexpr std::size_t folderExtra = 6; // what the formats add to the two texts
constexpr std::size_t fileExtra = 4;
constexpr std::size_t commandExtra = 16; // no command adds more

bool IsFolder(const SelectionEntry& entry) {
    return entry.kind == ItemKind::Folder;
}

std::size_t LengthInList(const SelectionEntry& entry) {
    return std::wcslen(entry.folder.data()) + std::wcslen(entry.name.data()) +
           (IsFolder(entry) ? folderExtra : fileExtra);
}

} // namespace

OwnedText ArchiverFileList(std::span<const SelectionEntry> entries) {
    std::size_t capacity = 1;
    for (const SelectionEntry& entry : entries)
        capacity += LengthInList(entry);
    OwnedText list(new wchar_t[capacity]);
    std::span<wchar_t> rest(list.get(), capacity);
    rest[0] = L'\0';
    for (const SelectionEntry& entry : entries)
        rest = rest.subspan(FormatText(rest, IsFolder(entry) ? folderFormat : fileFormat, entry.folder.data(),
                                       entry.name.data()));
    return list;
}

OwnedText CompressCommand(std::wstring_view archive, std::wstring_view folder, const wchar_t* fileList) {
    const std::size_t capacity = archive.size() + folder.size() + std::wcslen(fileList) + commandExtra + 1;
    OwnedText command(new wchar_t[capacity]);
    FormatText({command.get(), capacity}, L"a \"%s\" \"%s\\\" %s", CopyText(archive).get(),
               CopyText(folder).get(), fileList);
    return command;
}

OwnedText ExtractCommand(std::wstring_view archive, std::wstring_view target) {
    const std::size_t capacity = archive.size() + target.size() + commandExtra + 1;
    OwnedText command(new wchar_t[capacity]);
    FormatText({command.get(), capacity}, L"e \"%s\" \"%s\\\"", CopyText(archive).get(),
               CopyText(target).get());
    return command;
}

bool AssignExtractTarget(Path& target, std::wstring_view base, std::wstring_view name, bool ownFolder) {
    const std::wstring_view folder = name.substr(0, name.rfind(L'.'));
    // "...zip" would lead out of the base.
    const bool isName = folder.find_first_not_of(L". ") != std::wstring_view::npos;
    return ownFolder && isName ? target.AssignChild(base, folder) : target.Assign(base);
}
