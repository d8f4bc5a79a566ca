#include "companions/archiver/make_archive.h"

#include "companions/archiver/failure.h"
#include "companions/archiver/sources.h"

namespace archiver {

namespace {

/// The archive that is there already; nothing when there is none. One that cannot be replaced is a failure.
std::optional<FileIdentity> EarlierArchive(const std::wstring& path) {
    const DWORD attributes = AttributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return std::nullopt;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw Failure(L"'" + DisplayPath(path) + L"' is a folder");
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        throw Failure(L"'" + DisplayPath(path) + L"' is read-only");
    return File::OpenToKnow(path).Identity();
}

} // namespace

std::wstring MakeArchive(const ArchiveKind& kind, const CommandLine& command) {
    const std::wstring path = FullPath(command.archive);
    // The sources are known before the new archive is begun, so it is never among them.
    const Sources sources = CollectSources(command, EarlierArchive(path));
    if (sources.entries.empty())
        throw Failure(L"There is nothing to compress");

    FileInTheMaking archive(path);
    const std::unique_ptr<ArchiveWriter> writer = kind.make(archive.Content());
    int files = 0;
    for (const Source& source : sources.entries) {
        if (source.isFolder) {
            writer->AddFolder(source.name, File::OpenToKnow(source.path).WriteTime());
        } else {
            File content = File::OpenToRead(source.path);
            writer->AddFile(source.name, content.WriteTime(), content);
            ++files;
        }
    }
    writer->Finish();
    archive.Content().Flush();
    archive.TakePlace();

    std::wstring done =
        std::to_wstring(files) + (files == 1 ? L" file was" : L" files were") + L" compressed.";
    if (sources.linksLeftOut > 0)
        done += L"\nLinks left out: " + std::to_wstring(sources.linksLeftOut) + L".";
    return done;
}

} // namespace archiver
