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
constexpr std::size_t blockSize = 64 * 1024;

class LhaWriter : public ArchiveWriter {
  public:
    explicit LhaWriter(File& archive) : archive_(archive), block_(blockSize) {}

    void AddFolder(const std::wstring& name, const FILETIME& time) override {
        Write(LhaHeader(Begin("-lhd-", name, time)));
    }
    void AddFile(const std::wstring& name, Content& content) override;
    void Finish() override { Write(std::string(1, '\0')); }

  private:
    static LhaMember Begin(std::string_view method, const std::wstring& name, const FILETIME& time);
    void Write(const std::string& bytes) { archive_.Write(bytes.data(), bytes.size()); }

    File& archive_;
    std::vector<char> block_;
};

LhaMember LhaWriter::Begin(std::string_view method, const std::wstring& name, const FILETIME& time) {
    LhaMember member{method, EncodeName(name, CP_UTF8).value_or("")};
    member.time = static_cast<std::uint32_t>(std::clamp<std::int64_t>(UnixTimeOf(time), 0, UINT32_MAX));
    return member;
}

/// The header comes before what it counts: it is written once for its room and once with the numbers.
void LhaWriter::AddFile(const std::wstring& name, Content& content) {
    LhaMember member = Begin("-lh0-", name, content.Time());
    const std::uint64_t place = archive_.Position();
    Write(LhaHeader(member));
    while (const std::size_t read = content.Read(block_.data(), block_.size())) {
        if (read > largestFile - member.size)
            throw Failure(L"'" + name + L"' is larger than 4 GB, which an LHA archive cannot hold");
        member.size += static_cast<std::uint32_t>(read);
        member.check = Crc16(member.check, block_.data(), read);
        archive_.Write(block_.data(), read);
    }
    member.packedSize = member.size;
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
