#include "companions/archiver/lha_reader.h"

#include <string_view>

#include <lhasa.h>

#include "companions/archiver/crc16.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/lha_names.h"
#include "companions/archiver/member_names.h"

namespace archiver {

namespace {

/// The file as lhasa asks for it, which remembers how a header began. Nothing may be thrown through lhasa.
struct Input {
    explicit Input(File& archive) : file(archive) {}

    File& file;
    /// Whether a header is looked for and nothing was read of it yet.
    bool headerAwaited = false;
    /// Whether the archive ended where a header was looked for, as it should.
    bool endedWell = false;
};

int ReadInput(void* context, void* buffer, std::size_t size) {
    auto& input = *static_cast<Input*>(context);
    try {
        const std::size_t read = input.file.Read(buffer, size);
        if (input.headerAwaited)
            input.endedWell = read == 0 || *static_cast<const char*>(buffer) == 0;
        input.headerAwaited = false;
        return static_cast<int>(read);
    } catch (const Failure&) {
        return -1;
    }
}

int SkipInput(void* context, std::size_t count) {
    File& file = static_cast<Input*>(context)->file;
    const std::uint64_t place = file.Position();
    if (count > file.Size() - place)
        return 0;
    try {
        file.Seek(place + count);
        return 1;
    } catch (const Failure&) {
        return 0;
    }
}

class LhaReader : public ArchiveReader {
  public:
    explicit LhaReader(File& file) : input_(file) {
        static constexpr LHAInputStreamType calls = {ReadInput, SkipInput, nullptr};
        stream_.reset(lha_input_stream_new(&calls, &input_));
        reader_.reset(stream_ ? lha_reader_new(stream_.get()) : nullptr);
        if (!reader_)
            throw FinalFailure(L"there is not enough memory");
        lha_reader_set_dir_policy(reader_.get(), LHA_READER_DIR_PLAIN);
    }

    bool Next(ArchiveMember& member) override;
    std::size_t Read(void* buffer, std::size_t size) override;

  private:
    bool IsWhole() const;

    Input input_;
    std::unique_ptr<LHAInputStream, void (*)(LHAInputStream*)> stream_{nullptr, lha_input_stream_free};
    std::unique_ptr<::LHAReader, void (*)(::LHAReader*)> reader_{nullptr, lha_reader_free};
    const LHAFileHeader* header_ = nullptr;
    std::uint64_t read_ = 0;
    std::uint16_t check_ = 0;
};

bool LhaReader::Next(ArchiveMember& member) {
    const bool first = header_ == nullptr;
    input_.headerAwaited = true;
    input_.endedWell = false;
    header_ = lha_reader_next_file(reader_.get());
    if (!header_) {
        const bool isEmpty = first && input_.endedWell && input_.file.Size() == 1;
        if (first && !isEmpty)
            throw DamagedArchive(L"the file is not an LHA archive, or is damaged");
        if (!input_.endedWell)
            throw DamagedArchive(L"the archive is damaged or cut off");
        return false;
    }
    read_ = 0;
    check_ = 0;
    member = {};
    member.name = LhaName({reinterpret_cast<const char*>(header_->raw_data), header_->raw_data_len});
    member.size = header_->length;
    member.time = LHA_FILE_HAVE_EXTRA(header_, LHA_FILE_WINDOWS_TIMESTAMPS)
                      ? FILETIME{static_cast<DWORD>(header_->win_modification_time),
                                 static_cast<DWORD>(header_->win_modification_time >> 32)}
                      : FileTimeOf(header_->timestamp);
    if (header_->symlink_target)
        member.kind = MemberKind::Link;
    else if (std::string_view(header_->compress_method) == LHA_COMPRESS_TYPE_DIR)
        member.kind = MemberKind::Folder;
    return true;
}

/// Of a Macintosh's file lhasa gives the data alone, without what the size and the check count in.
bool LhaReader::IsWhole() const {
    const bool partly = header_->os_type == LHA_OS_TYPE_MACOS && read_ > 0 && read_ < header_->length;
    return partly || (read_ == header_->length && check_ == header_->crc);
}

std::size_t LhaReader::Read(void* buffer, std::size_t size) {
    const std::size_t read = lha_reader_read(reader_.get(), buffer, size);
    check_ = Crc16(check_, buffer, read);
    read_ += read;
    if (read == 0 && !IsWhole())
        throw Failure(L"damaged, cut off or packed in an unknown way (" +
                      DecodeName(header_->compress_method, CP_UTF8).value_or(L"") + L")");
    return read;
}

} // namespace

std::unique_ptr<ArchiveReader> OpenLha(File& archive) {
    archive.Seek(0);
    return std::make_unique<LhaReader>(archive);
}

} // namespace archiver
