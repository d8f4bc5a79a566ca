#include "companions/archiver/lha_writer.h"

#include <algorithm>
#include <vector>

#include "companions/archiver/crc16.h"
#include "companions/archiver/expansion_limit.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/lh5_packer.h"
#include "companions/archiver/lha_header.h"
#include "companions/archiver/member_names.h"

namespace archiver {

namespace {

constexpr std::uint64_t largestFile = 0xFFFFFFFF;
constexpr std::size_t longestName = 60000; // the header's size is a number of 16 bits
constexpr std::size_t blockSize = 256 * 1024;

class LhaWriter : public ArchiveWriter {
  public:
    explicit LhaWriter(File& archive) : archive_(archive), block_(blockSize) {}

    void AddFolder(const std::wstring& name, const FILETIME& time) override {
        Write(LhaHeader(Begin("-lhd-", name, time)));
    }
    void AddFile(const std::wstring& name, const FILETIME& time, File& content) override;
    void Finish() override {
        Write(std::string(1, '\0'));
        archive_.CutOff(); // a member may have been longer when it was packed
    }

  private:
    static LhaMember Begin(std::string_view method, const std::wstring& name, const FILETIME& time);
    bool Pack(LhaMember& member, File& content);
    void Store(LhaMember& member, File& content);
    std::size_t ReadBlock(LhaMember& member, File& content);
    void Write(const std::string& bytes) { archive_.Write(bytes.data(), bytes.size()); }

    File& archive_;
    std::vector<char> block_;
    std::uint64_t totalSize_ = 0;
};

LhaMember LhaWriter::Begin(std::string_view method, const std::wstring& name, const FILETIME& time) {
    const std::optional<std::string> bytes = EncodeName(name, CP_UTF8);
    if (!bytes || bytes->size() > longestName)
        throw Failure(L"'" + name + L"' has a name that an LHA archive cannot keep");
    LhaMember member{method, *bytes};
    member.time = static_cast<std::uint32_t>(std::clamp<std::int64_t>(MemberTime(time).unix, 0, UINT32_MAX));
    return member;
}

void LhaWriter::AddFile(const std::wstring& name, const FILETIME& time, File& content) {
    LhaMember member = Begin("-lh5-", name, time);
    const std::uint64_t place = archive_.Position();
    const std::string room = LhaHeader(member);
    Write(room);
    if (!Pack(member, content)) {
        archive_.Seek(place + room.size());
        content.Seek(0);
        Store(member, content);
    }
    totalSize_ += member.size;
    const std::uint64_t end = archive_.Position();
    archive_.Seek(place);
    Write(LhaHeader(member));
    archive_.Seek(end);
}

/// The next bytes of the content, which the member's size and check then count in.
std::size_t LhaWriter::ReadBlock(LhaMember& member, File& content) {
    const std::size_t read = content.Read(block_.data(), block_.size());
    if (read > largestFile - member.size)
        throw Failure(L"'" + DecodeName(member.name, CP_UTF8).value_or(L"") +
                      L"' is larger than 4 GB, which an LHA archive cannot hold");
    member.size += static_cast<std::uint32_t>(read);
    member.check = Crc16(member.check, block_.data(), read);
    return read;
}

/// False when it is better not packed: it would not be smaller, or too much so.
bool LhaWriter::Pack(LhaMember& member, File& content) {
    const std::uint64_t start = archive_.Position();
    Lh5Packer packer;
    while (const std::size_t read = ReadBlock(member, content))
        Write(packer.Pack(block_.data(), read));
    Write(packer.Finish());
    const std::uint64_t packed = archive_.Position() - start;
    if (packed >= member.size || PacksTooWell(totalSize_ + member.size, archive_.Position()))
        return false;
    member.packedSize = static_cast<std::uint32_t>(packed);
    return true;
}

void LhaWriter::Store(LhaMember& member, File& content) {
    member.method = "-lh0-";
    member.size = 0;
    member.check = 0;
    while (const std::size_t read = ReadBlock(member, content))
        archive_.Write(block_.data(), read);
    member.packedSize = member.size;
}

} // namespace

std::unique_ptr<ArchiveWriter> MakeLhaWriter(File& archive) {
    return std::make_unique<LhaWriter>(archive);
}

} // namespace archiver
