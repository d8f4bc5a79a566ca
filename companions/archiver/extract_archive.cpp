#include "companions/archiver/extract_archive.h"

#include <algorithm>
#include <vector>

#include "companions/archiver/failure.h"
#include "companions/archiver/file_in_the_making.h"
#include "companions/archiver/left_out.h"
#include "companions/archiver/limits.h"
#include "companions/archiver/member_names.h"
#include "companions/archiver/target_folder.h"

namespace archiver {

namespace {

constexpr std::size_t blockSize = 64 * 1024;

constexpr wchar_t emptyArchive[] = L"the archive is empty";
constexpr std::uint64_t kilo = 1u << 10, mega = 1u << 20;

/// Bytes as people say them, the last digit up.
std::wstring SizeText(std::uint64_t bytes) {
    const std::uint64_t unit = bytes < 10 * mega ? kilo : mega;
    return std::to_wstring(bytes / unit + (bytes % unit != 0)) + (unit == kilo ? L" KB" : L" MB");
}

class Extraction {
  public:
    Extraction(const ArchiveKind& kind, const CommandLine& command, Attendant& attendant)
        : kind_(kind), attendant_(attendant), archive_(File::OpenToRead(FullPath(command.archive))),
          target_(FullPath(command.folder), FullPath(command.archive)), block_(blockSize) {}

    ExtractionReport Run();

  private:
    void Survey();
    void CheckRoom(std::uint64_t needed) const;
    void ExtractAll();
    void ExtractMember(ArchiveReader& reader, const ArchiveMember& member);
    void ExtractFile(ArchiveReader& reader, const ArchiveMember& member, const std::wstring& path);
    bool MayReplace(const ExistingFile& there, const ArchiveMember& member);
    void WriteFile(ArchiveReader& reader, const ArchiveMember& member, const std::wstring& path,
                   std::optional<ExistingFile> there);
    bool ReadBlock(ArchiveReader& reader, const ArchiveMember& member);
    void SetFolderTimes() const;
    ExtractionReport Report() const;

    const ArchiveKind& kind_;
    Attendant& attendant_;
    File archive_;
    TargetFolder target_;
    std::vector<char> block_;
    std::size_t blockFilled_ = 0;
    std::uint64_t memberRead_ = 0; // bytes of the member at hand
    int filesThere_ = 0, filesExtracted_ = 0;
    LeftOut leftOut_;
    std::wstring end_; // why the work ended before its end
    bool isCancelled_ = false;
    bool replaceAll_ = false, keepAll_ = false; // what was answered once for all
    std::vector<std::pair<std::wstring, FILETIME>> folderTimes_;
};

/// Looks through the archive first: what plainly does not fit is refused before anything is touched.
void Extraction::Survey() {
    std::uint64_t size = 0;
    std::size_t members = 0;
    if (archive_.Size() == 0)
        throw FinalFailure(emptyArchive);
    try {
        const std::unique_ptr<ArchiveReader> reader = kind_.open(archive_);
        for (ArchiveMember member; reader->Next(member); ++members) {
            GoOn(attendant_);
            filesThere_ += member.kind != MemberKind::Folder;
            size = size + member.size < size ? UINT64_MAX : size + member.size;
            if (members >= mostMembers)
                throw FinalFailure(L"the archive holds more than " + std::to_wstring(mostMembers) +
                                   L" members");
        }
    } catch (const DamagedArchive&) {
        // What lies before the damage can be extracted, and then the damage is told.
        if (filesThere_ == 0)
            throw;
        ++members;
    }
    if (members == 0)
        throw FinalFailure(emptyArchive);
    const std::uint64_t times = kind_.largestExpansion;
    if (times != 0 && size > freeExpansion && size / times > archive_.Size())
        throw FinalFailure(L"the archive claims to hold " + SizeText(size) +
                           L", which is more than anything of its size can");
    CheckRoom(size);
    attendant_.SetTotals(static_cast<std::uint64_t>(filesThere_), size);
}

void Extraction::CheckRoom(std::uint64_t needed) const {
    const std::optional<std::uint64_t> room = target_.FreeSpace();
    if (!room || needed <= *room)
        return;
    const std::uint64_t unit = *room < 10 * mega ? kilo : mega;
    throw FinalFailure(L"the archive needs " + SizeText(needed) + L", and only " +
                       SizeText(*room / unit * unit) + L" are free");
}

ExtractionReport Extraction::Run() {
    try {
        Survey();
        target_.Make();
        ExtractAll();
    } catch (const Cancelled&) {
        isCancelled_ = true;
    } catch (const FinalFailure& failure) {
        if (filesExtracted_ == 0 && leftOut_.IsEmpty())
            throw;
        end_ = failure.Reason();
    }
    SetFolderTimes();
    return Report();
}

void Extraction::ExtractAll() {
    const std::unique_ptr<ArchiveReader> reader = kind_.open(archive_);
    for (ArchiveMember member; reader->Next(member);) {
        GoOn(attendant_);
        memberRead_ = 0;
        try {
            ExtractMember(*reader, member);
        } catch (const FinalFailure&) {
            throw;
        } catch (const Failure& failure) {
            leftOut_.Add(member.name, failure.Reason());
        }
        attendant_.AddBytes(member.size - std::min(member.size, memberRead_));
        if (member.kind != MemberKind::Folder)
            attendant_.AddFile();
    }
}

void Extraction::ExtractMember(ArchiveReader& reader, const ArchiveMember& member) {
    if (member.kind == MemberKind::Link)
        throw Failure(L"links are not followed");
    const NameVerdict name = JudgeName(member.name);
    if (name.path.empty())
        throw Failure(name.reason);
    if (!member.fault.empty())
        throw Failure(member.fault);
    if (std::count(name.path.begin(), name.path.end(), L'\\') > static_cast<int>(deepestFolder))
        throw Failure(L"more than " + std::to_wstring(deepestFolder) + L" folders deep");
    if (!DeviceCanName(target_.PlaceOf(name.path)))
        throw Failure(L"the path would be longer than the device can have");
    if (member.kind == MemberKind::Folder) {
        target_.MakeFolders(name.path);
        if (member.time)
            folderTimes_.emplace_back(target_.PlaceOf(name.path), *member.time);
        return;
    }
    ExtractFile(reader, member, name.path);
}

void Extraction::ExtractFile(ArchiveReader& reader, const ArchiveMember& member, const std::wstring& path) {
    attendant_.ShowName(LeafOf(path));
    if (const std::size_t cut = path.rfind(L'\\'); cut != std::wstring::npos)
        target_.MakeFolders(std::wstring_view(path).substr(0, cut));
    if (!target_.Claim(path))
        throw Failure(L"another file of the archive has that name");
    std::optional<ExistingFile> there;
    if (!target_.IsNewFolderOf(path))
        there = target_.Find(path);
    if (!there || MayReplace(*there, member))
        WriteFile(reader, member, path, std::move(there));
}

/// Whether the user agrees to it. Who cancels throws.
bool Extraction::MayReplace(const ExistingFile& there, const ArchiveMember& member) {
    if (replaceAll_ || keepAll_)
        return replaceAll_;
    const std::wstring path = DisplayPath(there.place);
    const ReplaceAnswer answer =
        attendant_.AskReplace({path, there.attributes, {there.size, there.time}, {member.size, member.time}});
    if (answer == ReplaceAnswer::Cancel)
        throw Cancelled();
    replaceAll_ = answer == ReplaceAnswer::All;
    keepAll_ = answer == ReplaceAnswer::NoneOfAll;
    return replaceAll_ || answer == ReplaceAnswer::Yes;
}

/// Fills the block with what comes next of the member. False when that was the end of it.
bool Extraction::ReadBlock(ArchiveReader& reader, const ArchiveMember& member) {
    blockFilled_ = 0;
    while (blockFilled_ < block_.size()) {
        const std::size_t read = reader.Read(block_.data() + blockFilled_, block_.size() - blockFilled_);
        if (read == 0)
            return false;
        blockFilled_ += read;
        memberRead_ += read;
        if (memberRead_ > member.size)
            throw Failure(L"larger than the archive says, as only traps are");
        GoOn(attendant_);
    }
    return true;
}

/// What is damaged in its first block is never begun.
void Extraction::WriteFile(ArchiveReader& reader, const ArchiveMember& member, const std::wstring& path,
                           std::optional<ExistingFile> there) {
    bool more = ReadBlock(reader, member);
    FileInTheMaking file(target_.PlaceOf(path));
    target_.ExpectInside(file.Content(), path);
    for (;; more = ReadBlock(reader, member)) {
        file.Content().Write(block_.data(), blockFilled_);
        attendant_.AddBytes(blockFilled_);
        if (!more)
            break;
    }
    if (member.time)
        file.Content().SetWriteTime(*member.time);
    while (!file.TakePlace(there.has_value())) {
        there = target_.Find(path); // somebody else has just put it there
        if (there && !MayReplace(*there, member))
            return;
    }
    ++filesExtracted_;
}

/// Last of all: what is put into a folder changes its time. The innermost come last in the archive.
void Extraction::SetFolderTimes() const {
    for (auto folder = folderTimes_.rbegin(); folder != folderTimes_.rend(); ++folder) {
        if (attendant_.IsCancelled())
            return;
        try {
            File::OpenToMark(folder->first).SetWriteTime(folder->second);
        } catch (const Failure&) {
            continue; // a time is not worth a failure
        }
    }
}

ExtractionReport Extraction::Report() const {
    const bool complete = end_.empty() && leftOut_.IsEmpty() && !isCancelled_;
    std::wstring text = isCancelled_ ? L"Canceled: " : L"";
    text += complete ? CountOfFiles(filesExtracted_)
                     : std::to_wstring(filesExtracted_) + L" of " + CountOfFiles(filesThere_);
    text += (complete ? filesExtracted_ : filesThere_) == 1 ? L" was extracted." : L" were extracted.";
    if (!end_.empty())
        text += L"\nThen " + end_ + L".";
    return {complete, text + leftOut_.Lines()};
}

} // namespace

ExtractionReport ExtractArchive(const ArchiveKind& kind, const CommandLine& command, Attendant& attendant) {
    return Extraction(kind, command, attendant).Run();
}

} // namespace archiver
