#include "companions/archiver/lha_reader.h"

#include <string_view>

#include <lhasa.h>

#include "companions/archiver/crc16.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/member_names.h"

namespace archiver {

namespace {

constexpr unsigned japaneseLetters = 932, dosLetters = 437;

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

/// LHA archives do not say in which letters their names are; most old ones are from Japan.
std::wstring DecodeOldName(std::string_view bytes) {
    for (const unsigned letters : {static_cast<unsigned>(CP_UTF8), japaneseLetters, dosLetters})
        if (std::optional<std::wstring> name = DecodeName(bytes, letters))
            return *name;
    return {};
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
        if (first)
            throw FinalFailure(L"the file is not an LHA archive, or is damaged");
        if (!input_.endedWell)
            throw FinalFailure(L"the archive is damaged or cut off");
        return false;
    }
    read_ = 0;
    check_ = 0;
    member = {};
    const std::string name =
        std::string(header_->path ? header_->path : "") + (header_->filename ? header_->filename : "");
    member.name = DecodeOldName(name);
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
        throw Failure(L"it is damaged, cut off or packed in an unknown way (" +
                      DecodeOldName(header_->compress_method) + L")");
    return read;
}

} // namespace

std::unique_ptr<ArchiveReader> OpenLha(File& archive) {
    archive.Seek(0);
    return std::make_unique<LhaReader>(archive);
}

} // namespace archiver
