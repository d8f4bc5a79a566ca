#include "companions/archiver/zip_writer.h"

#include <algorithm>
#include <vector>

#include <zlib.h>

#include "companions/archiver/expansion_limit.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/member_names.h"
#include "companions/archiver/record.h"

namespace archiver {

namespace {

constexpr std::uint32_t most32 = 0xFFFFFFFF, most16 = 0xFFFF;
// A file this large gets room for 64-bit sizes: it may grow while it is read, or by being deflated.
constexpr std::uint64_t largeFile = 0xF0000000;
constexpr std::size_t blockSize = 256 * 1024;

constexpr std::uint32_t memberMark = 0x04034B50, entryMark = 0x02014B50, endMark = 0x06054B50;
constexpr std::uint32_t end64Mark = 0x06064B50, end64PlaceMark = 0x07064B50;
constexpr std::uint32_t plainVersion = 20, largeVersion = 45;
constexpr std::uint32_t nameIsUtf8 = 0x800;
constexpr std::uint32_t stored = 0, deflated = 8;
constexpr std::uint32_t sizes64 = 0x0001, unixTimes = 0x5455; // kinds of extra fields

struct Member {
    std::string name;
    MemberTime time;
    std::uint64_t place = 0;
    std::uint32_t method = stored;
    std::uint32_t check = 0;
    std::uint64_t size = 0;
    std::uint64_t packedSize = 0;
    std::uint32_t attributes = 0;
    bool isLarge = false;

    std::uint32_t Flags() const {
        const bool plain = std::all_of(name.begin(), name.end(), [](char letter) { return letter > 0; });
        return plain ? 0 : nameIsUtf8;
    }
};

/// The world's time to the second, for those who can read it; the DOS time is the place's own.
Record TimeField(const MemberTime& time) {
    Record field;
    if (time.unix >= INT32_MIN && time.unix <= INT32_MAX)
        field.Word(unixTimes).Word(5).Byte(1).Long(static_cast<std::uint32_t>(time.unix));
    return field;
}

Record MemberHeader(const Member& member) {
    Record extra = TimeField(member.time);
    if (member.isLarge)
        extra.Word(sizes64).Word(16).Huge(member.size).Huge(member.packedSize);
    Record header;
    header.Long(memberMark).Word(member.isLarge ? largeVersion : plainVersion).Word(member.Flags());
    header.Word(member.method).Long(member.time.dos).Long(member.check);
    header.Long(member.isLarge ? most32 : static_cast<std::uint32_t>(member.packedSize));
    header.Long(member.isLarge ? most32 : static_cast<std::uint32_t>(member.size));
    header.Word(static_cast<std::uint32_t>(member.name.size())).Word(extra.Size());
    return header.Text(member.name).Text(extra.Bytes());
}

Record DirectoryEntry(const Member& member) {
    const bool isFar = member.place >= most32;
    Record large;
    if (member.isLarge)
        large.Huge(member.size).Huge(member.packedSize);
    if (isFar)
        large.Huge(member.place);
    Record extra = TimeField(member.time);
    if (large.Size() > 0)
        extra.Word(sizes64).Word(large.Size()).Text(large.Bytes());
    const std::uint32_t version = large.Size() > 0 ? largeVersion : plainVersion;
    Record entry;
    entry.Long(entryMark).Word(version).Word(version).Word(member.Flags()).Word(member.method);
    entry.Long(member.time.dos).Long(member.check);
    entry.Long(member.isLarge ? most32 : static_cast<std::uint32_t>(member.packedSize));
    entry.Long(member.isLarge ? most32 : static_cast<std::uint32_t>(member.size));
    entry.Word(static_cast<std::uint32_t>(member.name.size())).Word(extra.Size());
    entry.Word(0).Word(0).Word(0).Long(member.attributes);
    entry.Long(isFar ? most32 : static_cast<std::uint32_t>(member.place));
    return entry.Text(member.name).Text(extra.Bytes());
}

/// What comes behind the directory of `count` entries that lies from `start` to `end`.
Record DirectoryEnd(std::uint64_t count, std::uint64_t start, std::uint64_t end) {
    Record record;
    if (count >= most16 || end >= most32) {
        record.Long(end64Mark).Huge(44).Word(largeVersion).Word(largeVersion).Long(0).Long(0);
        record.Huge(count).Huge(count).Huge(end - start).Huge(start);
        record.Long(end64PlaceMark).Long(0).Huge(end).Long(1);
    }
    const auto entries = static_cast<std::uint32_t>(std::min<std::uint64_t>(count, most16));
    record.Long(endMark).Word(0).Word(0).Word(entries).Word(entries);
    record.Long(static_cast<std::uint32_t>(std::min<std::uint64_t>(end - start, most32)));
    record.Long(static_cast<std::uint32_t>(std::min<std::uint64_t>(start, most32)));
    return record.Word(0);
}

class ZipWriter : public ArchiveWriter {
  public:
    explicit ZipWriter(File& archive) : archive_(archive), input_(blockSize), output_(blockSize) {
        if (deflateInit2(&deflater_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) !=
            Z_OK)
            throw FinalFailure(L"there is not enough memory");
    }
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;
    ~ZipWriter() override { deflateEnd(&deflater_); }

    void AddFolder(const std::wstring& name, const FILETIME& time) override {
        Member member = Begin(name + L'/', time);
        member.attributes = FILE_ATTRIBUTE_DIRECTORY;
        Write(MemberHeader(member));
        members_.push_back(std::move(member));
    }

    void AddFile(const std::wstring& name, const FILETIME& time, File& content) override;
    void Finish() override;

  private:
    Member Begin(const std::wstring& name, const FILETIME& time) const;
    void Deflate(int flush, Member& member);
    void KeepExpansionHonest(Member& member);
    void Write(const Record& record) { archive_.Write(record.Bytes().data(), record.Bytes().size()); }

    File& archive_;
    z_stream deflater_{};
    std::vector<unsigned char> input_, output_;
    std::vector<Member> members_;
    std::uint64_t totalSize_ = 0;
    int strategy_ = Z_DEFAULT_STRATEGY;
};

Member ZipWriter::Begin(const std::wstring& name, const FILETIME& time) const {
    const std::optional<std::string> bytes = EncodeName(name, CP_UTF8);
    if (!bytes || bytes->size() > most16)
        throw Failure(L"'" + name + L"' has a name that a ZIP archive cannot keep");
    Member member{*bytes, MemberTime(time)};
    member.place = archive_.Position();
    return member;
}

void ZipWriter::AddFile(const std::wstring& name, const FILETIME& time, File& content) {
    Member member = Begin(name, time);
    member.attributes = FILE_ATTRIBUTE_ARCHIVE;
    member.isLarge = content.Size() >= largeFile;
    Write(MemberHeader(member)); // a first one, for its room
    deflateReset(&deflater_);
    while (const std::size_t read = content.Read(input_.data(), input_.size())) {
        member.check = crc32(member.check, input_.data(), static_cast<uInt>(read));
        member.size += read;
        totalSize_ += read;
        deflater_.next_in = input_.data();
        deflater_.avail_in = static_cast<uInt>(read);
        Deflate(Z_NO_FLUSH, member);
        KeepExpansionHonest(member);
    }
    if (member.size > 0) {
        member.method = deflated;
        Deflate(Z_FINISH, member);
    }
    if (!member.isLarge && (member.size >= most32 || member.packedSize >= most32))
        throw Failure(L"'" + name + L"' has grown while it was read");
    const std::uint64_t end = archive_.Position();
    archive_.Seek(member.place);
    Write(MemberHeader(member));
    archive_.Seek(end);
    members_.push_back(std::move(member));
}

/// Deflates the input that is set and writes what comes out.
void ZipWriter::Deflate(int flush, Member& member) {
    do {
        deflater_.next_out = output_.data();
        deflater_.avail_out = static_cast<uInt>(output_.size());
        deflate(&deflater_, flush);
        const std::size_t packed = output_.size() - deflater_.avail_out;
        archive_.Write(output_.data(), packed);
        member.packedSize += packed;
    } while (deflater_.avail_out == 0);
}

/// Changes over to packing less well when the archive packs too well, and back.
void ZipWriter::KeepExpansionHonest(Member& member) {
    const int wanted = PacksTooWell(totalSize_, archive_.Position()) ? Z_HUFFMAN_ONLY : Z_DEFAULT_STRATEGY;
    if (wanted == strategy_)
        return;
    Deflate(Z_BLOCK, member);
    deflater_.next_out = output_.data();
    deflater_.avail_out = static_cast<uInt>(output_.size());
    deflateParams(&deflater_, Z_DEFAULT_COMPRESSION, wanted);
    const std::size_t packed = output_.size() - deflater_.avail_out;
    archive_.Write(output_.data(), packed);
    member.packedSize += packed;
    strategy_ = wanted;
}

void ZipWriter::Finish() {
    const std::uint64_t start = archive_.Position();
    for (const Member& member : members_)
        Write(DirectoryEntry(member));
    Write(DirectoryEnd(members_.size(), start, archive_.Position()));
}

} // namespace

std::unique_ptr<ArchiveWriter> MakeZipWriter(File& archive) {
    return std::make_unique<ZipWriter>(archive);
}

} // namespace archiver
