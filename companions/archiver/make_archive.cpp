#include "companions/archiver/make_archive.h"

#include "companions/archiver/failure.h"
#include "companions/archiver/file_in_the_making.h"
#include "companions/archiver/sources.h"

namespace archiver {

namespace {

/// Where the archive is that is there already; empty when there is none. One that cannot be replaced is a
/// failure.
std::wstring EarlierArchive(const std::wstring& path) {
    const DWORD attributes = AttributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return {};
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw Failure(L"'" + DisplayPath(path) + L"' is a folder");
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        throw Failure(L"'" + DisplayPath(path) + L"' is read-only");
    return File::OpenToKnow(path).FinalPath();
}

/// A file on its way into the archive, while the user looks on.
class WatchedContent : public Content {
  public:
    WatchedContent(File& file, Attendant& attendant) : file_(file), attendant_(attendant) {}
    std::uint64_t Size() const override { return file_.Size(); }
    FILETIME Time() const override { return file_.WriteTime(); }
    std::size_t Read(void* buffer, std::size_t size) override {
        GoOn(attendant_);
        const std::size_t read = file_.Read(buffer, size);
        attendant_.AddBytes(read);
        return read;
    }

  private:
    File& file_;
    Attendant& attendant_;
};

class Making {
  public:
    Making(const ArchiveKind& kind, const CommandLine& command, Attendant& attendant)
        : kind_(kind), command_(command), attendant_(attendant), path_(FullPath(command.archive)),
          earlier_(EarlierArchive(path_)) {}

    MakingReport Run();

  private:
    void Add(ArchiveWriter& writer, const Source& source);

    const ArchiveKind& kind_;
    const CommandLine& command_;
    Attendant& attendant_;
    std::wstring path_, earlier_;
    LeftOut leftOut_;
    int files_ = 0, folders_ = 0;
};

void Making::Add(ArchiveWriter& writer, const Source& source) {
    if (source.isFolder) {
        writer.AddFolder(source.name, source.time);
        ++folders_;
        return;
    }
    attendant_.ShowName(LeafOf(source.path));
    File file = File::OpenToRead(source.path);
    const std::wstring place = file.FinalPath();
    if (IsElsewhere(place, *source.folderPlace, source.path)) {
        leftOut_.Add(source.name, linkReason);
    } else if (place.empty() || earlier_.empty() || !SameName(place, earlier_)) {
        WatchedContent content(file, attendant_);
        writer.AddFile(source.name, content);
        ++files_;
    }
    attendant_.AddFile();
}

MakingReport Making::Run() {
    // The sources are known before the new archive is begun, so it is never among them.
    const Sources sources = CollectSources(command_, attendant_, leftOut_);
    attendant_.SetTotals(sources.files, sources.bytes);
    FileInTheMaking archive(path_);
    const std::unique_ptr<ArchiveWriter> writer = kind_.make(archive.Content());
    for (const Source& source : sources.entries) {
        GoOn(attendant_);
        Add(*writer, source);
    }
    if (files_ + folders_ == 0)
        return {false, true, L"There is nothing to compress." + leftOut_.Lines()};
    writer->Finish();
    GoOn(attendant_);
    if (!archive.TakePlace(!earlier_.empty()))
        throw Failure(L"'" + DisplayPath(path_) + L"' has just been made by somebody else");
    return {true, !leftOut_.IsEmpty(),
            CountOfFiles(files_) + (files_ == 1 ? L" was" : L" were") + L" compressed." + leftOut_.Lines()};
}

} // namespace

MakingReport MakeArchive(const ArchiveKind& kind, const CommandLine& command, Attendant& attendant) {
    try {
        return Making(kind, command, attendant).Run();
    } catch (const Cancelled&) {
        return {false, false, L"Canceled: the archive was not made."};
    }
}

} // namespace archiver
