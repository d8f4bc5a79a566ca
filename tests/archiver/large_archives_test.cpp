// Archives beyond what 16 and 32 bits can count.

#include "companions/archiver/file.h"
#include "companions/archiver/zip_reader.h"
#include "companions/archiver/zip_writer.h"
#include "tests/archiver/archiver_test.h"

namespace {

using LargeArchives = ArchiverTest;

} // namespace

TEST_F(LargeArchives, HoldMoreThan65535Members) {
    constexpr int count = 70000;
    {
        archiver::File file = archiver::File::Create(archiver::FullPath(L"\\a.zip"));
        const std::unique_ptr<archiver::ArchiveWriter> writer = archiver::MakeZipWriter(file);
        for (int number = 0; number < count; ++number)
            writer->AddFolder(std::to_wstring(number), FILETIME{0, 0x01C00000});
        writer->Finish();
    }
    RunOnHost(
        "test $(unzip -Z1 a.zip | wc -l) = 70000\n7z t a.zip >../said\ngrep -q 'Folders: 70000' ../said");
    archiver::File file = archiver::File::OpenToRead(archiver::FullPath(L"\\a.zip"));
    const std::unique_ptr<archiver::ArchiveReader> reader = archiver::OpenZip(file);
    int found = 0;
    for (archiver::ArchiveMember member; reader->Next(member);)
        ++found;
    EXPECT_EQ(found, count);
}

TEST_F(LargeArchives, HoldFilesOfMoreThan4Gigabytes) {
    constexpr std::uint64_t size = (4ull << 30) + 12345;
    device.FileOfSize(L"\\In\\big.bin", size);
    device.File(L"\\In\\small.txt", "small");
    Make(Zip, L"\\a.zip", L"", {L"\\In\\*"});
    RunOnHost("test \"$(unzip -p a.zip In/small.txt)\" = small\n"
              "unzip -Zl a.zip | grep -q ' 4294979641 .*big.bin'\n"
              "7z l a.zip | grep -q ' 4294979641 .*big.bin'");

    // The reader checks what it reads.
    archiver::File file = archiver::File::OpenToRead(archiver::FullPath(L"\\a.zip"));
    const std::unique_ptr<archiver::ArchiveReader> reader = archiver::OpenZip(file);
    std::vector<char> block(1 << 20);
    std::uint64_t found = 0;
    for (archiver::ArchiveMember member; reader->Next(member);)
        while (const std::size_t read = reader->Read(block.data(), block.size()))
            found += read;
    EXPECT_EQ(found, size + 5);
}
