#include "companions/archiver/extract_archive.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "companions/archiver/expansion_limit.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/member_names.h"

namespace archiver {

namespace {

constexpr std::size_t longestReport = 900; // characters; what the caller's buffer surely takes
constexpr std::size_t longestName = 120;   // of a member in the report
constexpr std::size_t blockSize = 256 * 1024;

/// Bytes as people say them.
std::wstring SizeText(std::uint64_t bytes) {
    constexpr std::uint64_t mega = 1u << 20;
    return bytes < 10 * mega ? std::to_wstring(bytes / 1024) + L" KB"
                             : std::to_wstring(bytes / mega) + L" MB";
}

/// A member's name as it can be shown, whatever it holds.
std::wstring NameForPeople(const std::wstring& name) {
    std::wstring shown = name.substr(0, longestName);
    std::replace_if(
        shown.begin(), shown.end(), [](wchar_t letter) { return letter < L' '; }, L' ');
    return name.size() > longestName ? shown + L"..." : shown;
}

class Extraction {
  public:
    Extraction(const ArchiveKind& kind, const CommandLine& command)
        : kind_(kind), target_(FullPath(command.folder)),
          archive_(File::OpenToRead(FullPath(command.archive))), block_(blockSize) {}

    ExtractionReport Run();

  private:
    void Survey();
    void MakeTarget() const;
    void ExtractAll();
    void ExtractMember(ArchiveReader& reader, const ArchiveMember& member);
    void MakeFolders(std::wstring_view path);
    void WriteFile(ArchiveReader& reader, const ArchiveMember& member, const std::wstring& place);
    void SetFolderTimes() const;
    void LeaveOut(const std::wstring& name, const std::wstring& reason);
    ExtractionReport Report() const;

    const ArchiveKind& kind_;
    std::wstring target_;
    File archive_;
    std::vector<char> block_;
    std::uint64_t written_ = 0;
    int filesThere_ = 0, filesExtracted_ = 0, leftOut_ = 0;
    std::wstring reasons_;
    int reasonsToldNot_ = 0;
    std::wstring end_; // why the work ended before its end
    std::vector<std::pair<std::wstring, FILETIME>> folderTimes_;
    std::unordered_set<std::wstring> soundFolders_; // made or looked at already
};

/// Looks through the archive first: what is plainly too much is refused before anything is touched.
void Extraction::Survey() {
    std::uint64_t size = 0;
    try {
        const std::unique_ptr<ArchiveReader> reader = kind_.open(archive_);
        for (ArchiveMember member; reader->Next(member);) {
            filesThere_ += member.kind != MemberKind::Folder;
            size = size + member.size < size ? UINT64_MAX : size + member.size;
        }
    } catch (const FinalFailure&) {
        // What lies before the damage can be extracted, and then the damage is told.
        if (filesThere_ == 0)
            throw;
    }
    if (ExpandsTooFar(size, archive_.Size()))
        throw FinalFailure(L"the archive would expand to more than " + std::to_wstring(largestExpansion) +
                           L" times its size (" + SizeText(size) + L"), as only traps do");
    ULARGE_INTEGER room{};
    if (GetDiskFreeSpaceExW((target_ + L'\\').c_str(), &room, nullptr, nullptr) &&
        (size > room.QuadPart || (size > 0 && room.QuadPart - size < roomLeftFree)))
        throw FinalFailure(L"the archive needs " + SizeText(size) + L", and only " + SizeText(room.QuadPart) +
                           L" are free");
}

/// Makes the target folder, and those above it that are missing.
void Extraction::MakeTarget() const {
    for (std::size_t cut = target_.find(L'\\', 4); cut != std::wstring::npos;) {
        cut = target_.find(L'\\', cut + 1);
        const std::wstring folder = target_.substr(0, cut);
        if (AttributesOf(folder) == INVALID_FILE_ATTRIBUTES && !CreateDirectoryW(folder.c_str(), nullptr))
            FailBySystem(L"'" + DisplayPath(folder) + L"' cannot be made");
    }
    const DWORD attributes = AttributesOf(target_);
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        throw FinalFailure(L"'" + DisplayPath(target_) + L"' is not a folder");
}

ExtractionReport Extraction::Run() {
    MakeTarget();
    Survey();
    try {
        ExtractAll();
    } catch (const FinalFailure& failure) {
        end_ = failure.Reason();
    }
    SetFolderTimes();
    return Report();
}

void Extraction::ExtractAll() {
    const std::unique_ptr<ArchiveReader> reader = kind_.open(archive_);
    for (ArchiveMember member; reader->Next(member);) {
        try {
            ExtractMember(*reader, member);
        } catch (const FinalFailure&) {
            throw;
        } catch (const Failure& failure) {
            LeaveOut(member.name, failure.Reason());
        }
    }
}

void Extraction::ExtractMember(ArchiveReader& reader, const ArchiveMember& member) {
    const NameVerdict name = JudgeName(member.name);
    if (name.path.empty())
        throw Failure(name.reason);
    if (member.kind == MemberKind::Link)
        throw Failure(L"it is a link");
    if (!member.fault.empty())
        throw Failure(member.fault);
    const std::wstring place = target_ + L'\\' + name.path;
    if (member.kind == MemberKind::Folder) {
        MakeFolders(name.path);
        if (member.time)
            folderTimes_.emplace_back(place, *member.time);
        return;
    }
    const std::size_t cut = name.path.rfind(L'\\');
    if (cut != std::wstring::npos)
        MakeFolders(std::wstring_view(name.path).substr(0, cut));
    const DWORD there = AttributesOf(place);
    if (there != INVALID_FILE_ATTRIBUTES) {
        if ((there & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
            throw Failure(L"a link of that name is in its way");
        if ((there & FILE_ATTRIBUTE_DIRECTORY) != 0)
            throw Failure(L"a folder of that name is in its way");
        if ((there & FILE_ATTRIBUTE_READONLY) != 0)
            throw Failure(L"a read-only file of that name is in its way");
    }
    WriteFile(reader, member, place);
    ++filesExtracted_;
}

/// Makes the folders of `path` below the target. None of them may be a link, which would lead outside.
void Extraction::MakeFolders(std::wstring_view path) {
    for (std::size_t cut = 0; cut != std::wstring_view::npos;) {
        cut = path.find(L'\\', cut + 1);
        const std::wstring folder = target_ + L'\\' + std::wstring(path.substr(0, cut));
        if (soundFolders_.contains(folder))
            continue;
        const DWORD there = AttributesOf(folder);
        if (there == INVALID_FILE_ATTRIBUTES) {
            if (!CreateDirectoryW(folder.c_str(), nullptr))
                FailBySystem(L"the folder '" + std::wstring(LeafOf(folder)) + L"' cannot be made");
        } else if ((there & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
            throw Failure(L"the folder '" + std::wstring(LeafOf(folder)) + L"' is a link");
        } else if ((there & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            throw Failure(L"a file is where its folder '" + std::wstring(LeafOf(folder)) + L"' should be");
        }
        soundFolders_.insert(folder);
    }
}

void Extraction::WriteFile(ArchiveReader& reader, const ArchiveMember& member, const std::wstring& place) {
    FileInTheMaking file(place);
    while (const std::size_t read = reader.Read(block_.data(), block_.size())) {
        written_ += read;
        // The archive may have said less than it holds.
        if (ExpandsTooFar(written_, archive_.Size()))
            throw FinalFailure(L"the archive expands to more than " + std::to_wstring(largestExpansion) +
                               L" times its size, as only traps do");
        file.Content().Write(block_.data(), read);
    }
    if (member.time)
        file.Content().SetWriteTime(*member.time);
    file.TakePlace();
}

/// Last of all: what is put into a folder changes its time. The innermost come last in the archive.
void Extraction::SetFolderTimes() const {
    for (auto folder = folderTimes_.rbegin(); folder != folderTimes_.rend(); ++folder) {
        try {
            File::OpenToKnow(folder->first).SetWriteTime(folder->second);
        } catch (const Failure&) {
            continue; // a time is not worth a failure
        }
    }
}

void Extraction::LeaveOut(const std::wstring& name, const std::wstring& reason) {
    ++leftOut_;
    const std::wstring line = L"\n'" + NameForPeople(name) + L"' was left out: " + reason + L".";
    if (reasonsToldNot_ == 0 && reasons_.size() + line.size() <= longestReport)
        reasons_ += line;
    else
        ++reasonsToldNot_;
}

ExtractionReport Extraction::Report() const {
    const bool complete = end_.empty() && leftOut_ == 0;
    std::wstring text = std::to_wstring(filesExtracted_);
    if (!complete)
        text += L" of " + std::to_wstring(filesThere_);
    text += (filesThere_ == 1 ? L" file was" : L" files were") + std::wstring(L" extracted.");
    if (!end_.empty())
        text += L"\nThen " + end_ + L".";
    text += reasons_;
    if (reasonsToldNot_ > 0)
        text += L"\n" + std::to_wstring(reasonsToldNot_) + L" more were left out.";
    return {complete, text};
}

} // namespace

ExtractionReport ExtractArchive(const ArchiveKind& kind, const CommandLine& command) {
    return Extraction(kind, command).Run();
}

} // namespace archiver
