#include "companions/archiver/zip_writer.h"

#include <algorithm>
#include <vector>

#include <archive.h>
#include <archive_entry.h>

#include "companions/archiver/failure.h"
#include "companions/archiver/member_names.h"

namespace archiver {

namespace {

constexpr std::size_t blockSize = 64 * 1024;
constexpr int outputBlock = 256 * 1024;

/// The file as libarchive writes it. Nothing may be thrown through its functions: what went wrong is kept.
struct Output {
    File& file;
    std::wstring fault = {};
    bool isFinal = false;
};

la_ssize_t WriteOutput(archive* writer, void* context, const void* bytes, std::size_t size) {
    auto& output = *static_cast<Output*>(context);
    try {
        output.file.Write(bytes, size);
        return static_cast<la_ssize_t>(size);
    } catch (const FinalFailure& failure) {
        output.fault = failure.Reason();
        output.isFinal = true;
    } catch (const Failure& failure) {
        output.fault = failure.Reason();
    }
    archive_set_error(writer, ERROR_WRITE_FAULT, "the archive cannot be written");
    return ARCHIVE_FATAL;
}

class ZipWriter : public ArchiveWriter {
  public:
    explicit ZipWriter(File& archive);

    void AddFolder(const std::wstring& name, const FILETIME& time) override;
    void AddFile(const std::wstring& name, Content& content) override;
    void Finish() override { Expect(archive_write_close(writer_.get())); }

  private:
    void Begin(const std::wstring& name, const FILETIME& time, unsigned kind, std::uint64_t size);
    void Expect(la_ssize_t result);

    Output output_;
    std::vector<char> block_ = std::vector<char>(blockSize);
    std::unique_ptr<archive_entry, void (*)(archive_entry*)> entry_{archive_entry_new(), archive_entry_free};
    std::unique_ptr<archive, int (*)(archive*)> writer_{archive_write_new(), archive_write_free};
};

ZipWriter::ZipWriter(File& file) : output_{file} {
    archive* writer = writer_.get();
    if (!writer || !entry_)
        throw FinalFailure(L"there is not enough memory");
    archive_write_set_format_zip(writer);
    Expect(archive_write_set_options(writer, "zip:hdrcharset=UTF-8"));
    archive_write_set_bytes_per_block(writer, outputBlock);
    archive_write_set_bytes_in_last_block(writer, 1); // nothing behind the archive's end
    Expect(archive_write_open(writer, &output_, nullptr, WriteOutput, nullptr));
}

void ZipWriter::Expect(la_ssize_t result) {
    if (result >= ARCHIVE_OK)
        return;
    if (output_.isFinal)
        throw FinalFailure(output_.fault);
    const char* words = archive_error_string(writer_.get());
    throw Failure(!output_.fault.empty()
                      ? output_.fault
                      : L"the archive cannot be written (" +
                            (words ? DecodeName(words, CP_UTF8).value_or(L"") : std::wstring()) + L")");
}

void ZipWriter::Begin(const std::wstring& name, const FILETIME& time, unsigned kind, std::uint64_t size) {
    archive_entry* entry = archive_entry_clear(entry_.get());
    archive_entry_copy_pathname_w(entry, name.c_str());
    archive_entry_set_filetype(entry, kind);
    archive_entry_set_perm(entry, kind == AE_IFDIR ? 0755 : 0644);
    archive_entry_set_mtime(entry, UnixTimeOf(time), 0);
    archive_entry_set_size(entry, static_cast<la_int64_t>(size));
    Expect(archive_write_header(writer_.get(), entry));
}

void ZipWriter::AddFolder(const std::wstring& name, const FILETIME& time) {
    Begin(name, time, AE_IFDIR, 0);
}

/// Of a file that has grown meanwhile libarchive takes as much as was announced.
void ZipWriter::AddFile(const std::wstring& name, Content& content) {
    std::uint64_t left = content.Size();
    Begin(name, content.Time(), AE_IFREG, left);
    while (left > 0) {
        const std::size_t wanted = std::min<std::uint64_t>(left, block_.size());
        const std::size_t read = content.Read(block_.data(), wanted);
        if (read == 0)
            break;
        Expect(archive_write_data(writer_.get(), block_.data(), read));
        left -= read;
    }
    Expect(archive_write_finish_entry(writer_.get()));
}

} // namespace

std::unique_ptr<ArchiveWriter> MakeZipWriter(File& archive) {
    return std::make_unique<ZipWriter>(archive);
}

} // namespace archiver
