#include "companions/archiver/lha_writer.h"

#include <algorithm>
#include <vector>

#include "companions/archiver/crc16.h"
#include "companions/archiver/failure.h"
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
    void Finish() override { Write(std::string(1, '\0')); }

  private:
    static LhaMember Begin(std::string_view method, const std::wstring& name, const FILETIME& time);
    void Write(const std::string& bytes) { archive_.Write(bytes.data(), bytes.size()); }

    File& archive_;
    std::vector<char> block_;
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
    LhaMember member = Begin("-lh0-", name, time);
    const std::uint64_t place = archive_.Position();
    Write(LhaHeader(member)); // a first one, for its room
    std::uint64_t size = 0;
    while (const std::size_t read = content.Read(block_.data(), block_.size())) {
        size += read;
        if (size > largestFile)
            throw Failure(L"'" + name + L"' is larger than 4 GB, which an LHA archive cannot hold");
        member.check = Crc16(member.check, block_.data(), read);
        archive_.Write(block_.data(), read);
    }
    member.size = member.packedSize = static_cast<std::uint32_t>(size);
    const std::uint64_t end = archive_.Position();
    archive_.Seek(place);
    Write(LhaHeader(member));
    archive_.Seek(end);
}

} // namespace

std::unique_ptr<ArchiveWriter> MakeLhaWriter(File& archive) {
    return std::make_unique<LhaWriter>(archive);
}

} // namespace archiver
