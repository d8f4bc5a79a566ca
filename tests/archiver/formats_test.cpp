// The forms that archives are written in, and the small rules beside them.

#include <gtest/gtest.h>

#include "companions/archiver/archive_writer.h"
#include "companions/archiver/crc16.h"
#include "companions/archiver/left_out.h"
#include "companions/archiver/lha_header.h"
#include "companions/archiver/lha_names.h"
#include "companions/archiver/reply.h"
#include "companions/archiver/sources.h"

using namespace archiver;

TEST(ArchiverLhaHeader, HoldsItsSizeItsFieldsAndItsCheck) {
    LhaMember member{"-lh0-", "dir/name.txt"};
    member.size = member.packedSize = 0x01020304;
    member.check = 0xABCD;
    member.time = 0x11223344;
    const std::string header = LhaHeader(member);
    const auto* bytes = reinterpret_cast<const unsigned char*>(header.data());
    EXPECT_EQ(bytes[0] + 256u * bytes[1], header.size());
    EXPECT_EQ(header.substr(2, 5), "-lh0-");
    EXPECT_EQ(header.substr(7, 8), std::string("\x04\x03\x02\x01\x04\x03\x02\x01"));
    EXPECT_EQ(header.substr(15, 4), "\x44\x33\x22\x11");
    EXPECT_EQ(bytes[20], 2);
    EXPECT_EQ(header.substr(21, 2), "\xCD\xAB");
    EXPECT_NE(header.find("\x01name.txt"), std::string::npos);
    EXPECT_NE(header.find("\x02"
                          "dir\xFF"),
              std::string::npos);
    std::string unchecked = header;
    unchecked.replace(27, 2, 2, '\0');
    EXPECT_EQ(Crc16(0, unchecked.data(), unchecked.size()), bytes[27] + 256 * bytes[28]);
}

TEST(ArchiverLhaHeader, NeverBeginsAsTheEndOfAnArchiveDoes) {
    for (std::size_t length = 1; length < 600; ++length) {
        const std::string header = LhaHeader({"-lh0-", std::string(length, 'n')});
        EXPECT_NE(header[0], '\0') << length;
    }
}

TEST(ArchiverLhaHeader, OfAFolderHasNoName) {
    const std::string header = LhaHeader({"-lhd-", "a/b"});
    EXPECT_NE(header.find("\x02"
                          "a\xFF"
                          "b\xFF"),
              std::string::npos);
}

TEST(ArchiverCrc16, IsTheOneOfLha) {
    EXPECT_EQ(Crc16(0, "123456789", 9), 0xBB3D);
    EXPECT_EQ(Crc16(Crc16(0, "1234", 4), "56789", 5), 0xBB3D);
}

TEST(ArchiverTimes, AreSecondsOfTheWorldsClock) {
    SYSTEMTIME utc{2005, 7, 5, 8, 9, 10, 12, 0};
    FILETIME time;
    SystemTimeToFileTime(&utc, &time);
    EXPECT_EQ(UnixTimeOf(time), 1120813812);
}

TEST(ArchiverReply, NeverGoesBeyondTheBuffer) {
    wchar_t buffer[8];
    std::fill_n(buffer, 8, L'#');
    WriteReply(buffer, 10, L"0123456789");
    EXPECT_EQ(std::wstring(buffer), L"0123");
    EXPECT_EQ(buffer[5], L'#');
    WriteReply(buffer, 1, L"x");
    EXPECT_EQ(std::wstring(buffer), L"0123");
    WriteReply(buffer, 3, L"x");
    EXPECT_EQ(std::wstring(buffer), L"");
    WriteReply(nullptr, 2048, L"x");
    // Half a character is none.
    WriteReply(buffer, 6, L"a\xD83D\xDE00");
    EXPECT_EQ(std::wstring(buffer), L"a");
}

TEST(ArchiverReply, IsNeverLongerThanTheProgramsBuffer) {
    std::wstring buffer(4096, L'#');
    WriteReply(buffer.data(), 8192, std::wstring(4000, L'x'));
    EXPECT_EQ(buffer.find(L'\0'), 1023u);
    EXPECT_EQ(buffer[1024], L'#');
}

TEST(ArchiverLeftOut, TellsEachReasonOnceWithACount) {
    LeftOut leftOut;
    EXPECT_TRUE(leftOut.IsEmpty());
    leftOut.Add(L"a", L"links are not followed");
    leftOut.Add(L"b\n", L"encrypted");
    leftOut.Add(L"c", L"links are not followed");
    leftOut.Add(L"d", L"links are not followed");
    EXPECT_EQ(leftOut.Lines(), L"\n'a' and 2 more were left out: links are not followed."
                               L"\n'b ' was left out: encrypted.");
}

TEST(ArchiverLeftOut, IsNeverLongerThanTheProgramsBuffer) {
    LeftOut leftOut;
    for (int number = 0; number < 500; ++number)
        leftOut.Add(std::wstring(300, L'n'), L"reason " + std::to_wstring(number));
    const std::wstring lines = leftOut.Lines();
    EXPECT_LT(lines.size(), 950u);
    EXPECT_TRUE(lines.ends_with(L" more were left out.")) << lines.size();
}

namespace {

/// A header of level 0 or 1 as far as its name goes.
std::string OldHeader(char level, std::string_view name, std::string_view fields = {}) {
    std::string header = std::string(2, '\0') + "-lh0-" + std::string(13, '\0') + level +
                         static_cast<char>(name.size()) + std::string(name) + std::string(3, '\0');
    header[0] = static_cast<char>(header.size());
    return header + std::string(fields);
}

} // namespace

TEST(ArchiverLhaNames, HoldHalvesOfLettersThatLookLikeSeparatorsAndCapitals) {
    EXPECT_EQ(LhaName(OldHeader(0, "\x95\x5C.txt")), L"\u8868.txt");
    EXPECT_EQ(LhaName(OldHeader(0, "A\\\x83\x41\x83\x43\x83\x45.TXT")), L"A\\\u30a2\u30a4\u30a6.TXT");
    EXPECT_EQ(LhaName(OldHeader(1, "\x95\x5C.txt", std::string("\0\0", 2))), L"\u8868.txt");
}

TEST(ArchiverLhaNames, StandInFieldsAsWell) {
    using namespace std::string_literals;
    EXPECT_EQ(LhaName(OldHeader(1, "short.txt", "\x0A\0\x01long.tx\x07\0\x02"s + "ab\xFF"s + "c\0\0"s)),
              L"ab\\c\\long.tx");
    // What the fields say of their lengths may be wrong.
    EXPECT_EQ(LhaName(OldHeader(1, "n", "\xFF\xFF\x01x"s)), L"n");
    EXPECT_EQ(LhaName(OldHeader(1, "n", "\x01\0"s)), L"n");
    EXPECT_EQ(LhaName(""), L"");
    EXPECT_EQ(LhaName(std::string(22, '\xFF')), L"");
}

TEST(ArchiverSources, AreNamedRelativeToTheirBase) {
    EXPECT_EQ(NameInArchive(L"\\\\?\\E:\\A\\b\\c.txt", L"\\\\?\\E:\\A"), L"b/c.txt");
    EXPECT_EQ(NameInArchive(L"\\\\?\\E:\\a\\c.txt", L"\\\\?\\E:\\A"), L"c.txt");
    EXPECT_EQ(NameInArchive(L"\\\\?\\E:\\c.txt", L"\\\\?\\E:"), L"c.txt");
    EXPECT_EQ(NameInArchive(L"\\\\?\\E:\\AB\\c.txt", L"\\\\?\\E:\\A"), L"AB/c.txt");
    EXPECT_EQ(NameInArchive(L"\\\\?\\E:\\My\\c.txt", L"\\\\?\\E:\\File Search"), L"My/c.txt");
    EXPECT_EQ(NameInArchive(L"\\\\?\\UNC\\server\\share\\c.txt", L"\\\\?\\E:\\A"), L"c.txt");
}
