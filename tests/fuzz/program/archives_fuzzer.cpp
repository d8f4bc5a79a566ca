// What the program tells the archiver, about files of any names, is what the archiver understands.

#include "companions/archiver/command_line.h"
#include "fileops/archive_commands.h"
#include "tests/fuzz/program/input.h"

namespace {

SelectionEntry EntryOf(std::wstring_view folder, std::wstring_view name, ItemKind kind) {
    SelectionEntry entry;
    entry.kind = kind;
    CopyTextTo(entry.folder, folder);
    CopyTextTo(entry.name, name);
    return entry;
}

/// A name as files can have it: none has a quotation mark.
std::wstring NameOf(std::wstring text) {
    std::erase(text, L'"');
    return text.empty() ? L"x" : text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::wstring folder = L"\\" + NameOf(input.Text(200));
    const std::wstring archive = folder + L"\\" + NameOf(input.Text(200)) + L".zip";
    std::vector<SelectionEntry> entries;
    for (std::size_t left = 1 + input.UpTo(6); left > 0; --left)
        entries.push_back(
            EntryOf(folder, NameOf(input.Text(255)), input.Bool() ? ItemKind::Folder : ItemKind::File));

    const OwnedText list = ArchiverFileList(entries);
    const OwnedText compress = CompressCommand(archive, folder, list.get());
    const auto packing = archiver::ParseCommandLine(compress.get());
    Expect(packing && packing->archive == archive && packing->files.size() == entries.size());
    const OwnedText extract = ExtractCommand(archive, folder);
    const auto extracting = archiver::ParseCommandLine(extract.get());
    Expect(extracting && extracting->archive == archive);

    Path target;
    const std::wstring name = input.Text(100);
    if (AssignExtractTarget(target, folder, name, input.Bool()))
        Expect(target.View().starts_with(folder));
    return 0;
}
