#include "fileops/archive_types.h"

#include <gtest/gtest.h>

namespace {

TEST(ArchiveTypes, GoByTheLastExtension) {
    for (const wchar_t* name : {L"a.zip", L"a.ZIP", L"A.Zip", L"a.tar.zip", L".zip", L"\\x.y\\a.zip"})
        EXPECT_EQ(ArchiveTypeOf(name), ArchiveType::Zip) << name;
    for (const wchar_t* name : {L"a.lzh", L"a.LZH", L"a.zip.lzh"})
        EXPECT_EQ(ArchiveTypeOf(name), ArchiveType::Lha) << name;
    for (const wchar_t* name : {L"a.zip.bak", L"zip", L"a.zi", L"a.zipp", L"a.zip ", L"a.lha", L"", L"a."})
        EXPECT_EQ(ArchiveTypeOf(name), ArchiveType::None) << name;
}

TEST(ArchiveTypes, NeedAnArchiverOfTheirOwn) {
    const ArchiverAvailability none;
    const ArchiverAvailability lha{.lhaAvailable = true};
    const ArchiverAvailability zip{.zipAvailable = true};
    EXPECT_FALSE(none.IsArchiverAvailable(ArchiveType::Zip));
    EXPECT_FALSE(none.AnyArchiverAvailable());
    EXPECT_TRUE(lha.IsArchiverAvailable(ArchiveType::Lha));
    EXPECT_FALSE(lha.IsArchiverAvailable(ArchiveType::Zip));
    EXPECT_TRUE(zip.IsArchiverAvailable(ArchiveType::Zip));
    EXPECT_FALSE(zip.IsArchiverAvailable(ArchiveType::Lha));
    EXPECT_TRUE(lha.AnyArchiverAvailable());
    EXPECT_TRUE(zip.AnyArchiverAvailable());
}

TEST(ArchiveTypes, AreTwoWhateverIsStored) {
    const ArchiverAvailability both{true, true};
    for (const std::uint32_t stored : {0u, 3u, 117u, 0xFFFFFFFFu})
        EXPECT_FALSE(both.IsArchiverAvailable(static_cast<ArchiveType>(stored))) << stored;
}

} // namespace
