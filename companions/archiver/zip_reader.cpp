#include "companions/archiver/zip_reader.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include <archive.h>
#include <archive_entry.h>

#include "companions/archiver/failure.h"
#include "companions/archiver/member_names.h"

namespace archiver {

namespace {

constexpr unsigned dosLetters = 437; // of names that do not say that they are UTF-8

/// The file as libarchive asks for it. Nothing may be thrown through its functions.
struct Input {
    File& file;
    std::vector<char> block = std::vector<char>(64 * 1024);
};

la_ssize_t ReadInput(archive* reader, void* context, const void** bytes) {
    auto& input = *static_cast<Input*>(context);
    try {
        *bytes = input.block.data();
        return static_cast<la_ssize_t>(input.file.Read(input.block.data(), input.block.size()));
    } catch (const Failure&) {
        archive_set_error(reader, ERROR_READ_FAULT, "the archive cannot be read");
        return ARCHIVE_FATAL;
    }
}

la_int64_t SeekInput(archive* reader, void* context, la_int64_t offset, int origin) {
    File& file = static_cast<Input*>(context)->file;
    const auto size = static_cast<la_int64_t>(file.Size());
    const auto from = origin == SEEK_SET   ? 0
                      : origin == SEEK_END ? size
                                           : static_cast<la_int64_t>(file.Position());
    const la_int64_t place = from + offset;
    if (place < 0 || place > size) {
        archive_set_error(reader, ERROR_SEEK, "the archive is cut off");
        return ARCHIVE_FATAL;
    }
    try {
        file.Seek(static_cast<std::uint64_t>(place));
        return place;
    } catch (const Failure&) {
        archive_set_error(reader, ERROR_SEEK, "the archive cannot be read");
        return ARCHIVE_FATAL;
    }
}

la_int64_t SkipInput(archive* reader, void* context, la_int64_t count) {
    File& file = static_cast<Input*>(context)->file;
    const auto place = static_cast<la_int64_t>(file.Position());
    const auto left = static_cast<la_int64_t>(file.Size()) - place;
    const la_int64_t skipped = count < left ? count : left;
    return skipped > 0 && SeekInput(reader, context, skipped, SEEK_CUR) >= 0 ? skipped : 0;
}

/// The name as its maker meant it. Names that do not say they are UTF-8 are read as DOS letters; but some
/// makers only forget to say it, and DOS letters that happen to be UTF-8 throughout are no words.
std::wstring NameOf(archive_entry* entry) {
    const wchar_t* name = archive_entry_pathname_w(entry);
    if (!name)
        return {};
    const std::optional<std::string> bytes = EncodeName(name, dosLetters);
    return (bytes ? DecodeName(*bytes, CP_UTF8) : std::nullopt).value_or(name);
}

MemberKind KindOf(archive_entry* entry) {
    if (archive_entry_symlink_w(entry) || archive_entry_hardlink_w(entry))
        return MemberKind::Link;
    switch (archive_entry_filetype(entry)) {
    case AE_IFDIR:
        return MemberKind::Folder;
    case AE_IFREG:
        return MemberKind::File;
    default:
        return MemberKind::Link;
    }
}

/// Whether there is nothing but the end of a directory without entries, which libarchive takes for damage.
bool IsEmptyZip(File& file) {
    std::array<char, 22> end{};
    file.Seek(0);
    const bool isEnd = file.Size() >= end.size() && file.Read(end.data(), end.size()) == end.size() &&
                       std::string_view(end.data(), 4) == "PK\5\6";
    return isEnd && std::all_of(end.begin() + 4, end.end() - 2, [](char byte) { return byte == 0; });
}

class ZipReader : public ArchiveReader {
  public:
    explicit ZipReader(File& file);

    bool Next(ArchiveMember& member) override;
    std::size_t Read(void* buffer, std::size_t size) override;

  private:
    std::wstring Words() const;

    Input input_;
    std::unique_ptr<archive, int (*)(archive*)> reader_{archive_read_new(), archive_read_free};
    bool begun_ = false;
};

ZipReader::ZipReader(File& file) : input_{file} {
    archive* reader = reader_.get();
    if (!reader)
        throw FinalFailure(L"there is not enough memory");
    archive_read_support_format_zip_seekable(reader);
    archive_read_set_options(reader, "zip:hdrcharset=CP437");
    archive_read_set_callback_data(reader, &input_);
    archive_read_set_read_callback(reader, ReadInput);
    archive_read_set_seek_callback(reader, SeekInput);
    archive_read_set_skip_callback(reader, SkipInput);
    archive_read_open1(reader);
}

std::wstring ZipReader::Words() const {
    const char* words = archive_error_string(reader_.get());
    return words ? DecodeName(words, CP_UTF8).value_or(L"") : L"";
}

bool ZipReader::Next(ArchiveMember& member) {
    archive_entry* entry = nullptr;
    const int result = archive_read_next_header(reader_.get(), &entry);
    if (result == ARCHIVE_EOF)
        return false;
    if (result < ARCHIVE_WARN && !begun_ && IsEmptyZip(input_.file))
        return false;
    if (result < ARCHIVE_WARN)
        throw DamagedArchive(begun_ ? L"the archive is damaged (" + Words() + L")"
                                    : L"the file is not a ZIP archive, or is damaged");
    begun_ = true;
    member = {};
    member.name = NameOf(entry);
    member.kind = KindOf(entry);
    if (archive_entry_size_is_set(entry))
        member.size = static_cast<std::uint64_t>(archive_entry_size(entry));
    if (archive_entry_mtime_is_set(entry))
        member.time = FileTimeOf(archive_entry_mtime(entry));
    if (archive_entry_is_encrypted(entry))
        member.fault = L"encrypted";
    return true;
}

std::size_t ZipReader::Read(void* buffer, std::size_t size) {
    const la_ssize_t read = archive_read_data(reader_.get(), buffer, size);
    if (read >= 0)
        return static_cast<std::size_t>(read);
    throw Failure(L"damaged or packed in an unknown way (" + Words() + L")");
}

} // namespace

std::unique_ptr<ArchiveReader> OpenZip(File& archive) {
    archive.Seek(0);
    return std::make_unique<ZipReader>(archive);
}

} // namespace archiver
